/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_PEER_H
#define TEXT_PEER_H


#include <QRect>

#include <TextStyle.h>
#include <ViewPeer.h>


/*!	What stands for a BTextView: a text of many lines, or the field of a text
	control. The latter has no styles, and does not scroll. Offsets and lengths are in bytes and lie
	within the text. Main thread only.
*/
class TextPeer : public ViewPeer {
public:
	using ViewPeer::ViewPeer;

	virtual void SetText(const char* text) = 0;
	virtual void Insert(int32 offset, const char* text, int32 length) = 0;
	// Followed by a NUL. Stays until the text is changed.
	virtual const char* Text() = 0;
	virtual int32 TextLength() = 0;

	virtual void Select(int32 start, int32 end) = 0;
	virtual void GetSelection(int32* _start, int32* _end) = 0;

	// That of the next insertion, if it was set since the last one; otherwise that is what stands
	// before it. And that of text that is there.
	virtual TextStyle Style() const = 0;
	virtual void SetStyle(const TextStyle& style) = 0;
	virtual TextStyle StyleAt(int32 offset) = 0;
	virtual void SetStyleOf(int32 start, int32 end, const TextStyle& style) = 0;

	virtual QRect PlaceOf(int32 offset) = 0;
	virtual void ScrollToOffset(int32 offset) = 0;

	virtual void SetWordWrap(bool wrap) = 0;
	virtual void SetEditing(bool editable, bool selectable) = 0;
	virtual void HideTyping(bool hide) = 0;
};


#endif // TEXT_PEER_H
