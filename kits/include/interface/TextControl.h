/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_CONTROL_H
#define TEXT_CONTROL_H


#include <Control.h>


class BTextView;
class TextControlPeer;


/*!	A label and a field for one line of text. Return in the field sends the control's message, if it
	has one.
	The text is bytes: what SetText() was given comes back unchanged until the user edits it. The
	label's column is as wide as the divider says. Belongs to the thread of its window.
*/
class BTextControl : public BControl {
public:
	BTextControl(const char* name, const char* label, const char* initialText, BMessage* message,
		uint32 flags = B_WILL_DRAW | B_NAVIGABLE);

	virtual void SetText(const char* text);
	const char* Text() const;
	BTextView* TextView() const { return fTextView; }

	virtual void SetDivider(float position);
	float Divider() const;

	void SetEnabled(bool enabled) override;

private:
	BTextControl(TextControlPeer* peer, const char* name, const char* label,
		const char* initialText, BMessage* message, uint32 flags);

	TextControlPeer* fControlPeer;
	BTextView* fTextView;
};


#endif // TEXT_CONTROL_H
