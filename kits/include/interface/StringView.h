/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef STRING_VIEW_H
#define STRING_VIEW_H


#include <String.h>
#include <View.h>


class StringViewPeer;


/*!	Shows a text as it stands, in as many lines as line feeds make of it. The text is bytes, shown as
	UTF-8. The view grows no wider than its text, unless it has an explicit maximum.
*/
class BStringView : public BView {
public:
	BStringView(const char* name, const char* text, uint32 flags = B_WILL_DRAW);
	BStringView(BRect frame, const char* name, const char* text, uint32 resizingMode = 0,
		uint32 flags = B_WILL_DRAW)
		= delete;

	void SetText(const char* text);
	const char* Text() const { return fText.String(); }
	void SetTruncation(uint32 truncationMode);

private:
	StringViewPeer* fStringPeer;
	BString fText;
};


#endif // STRING_VIEW_H
