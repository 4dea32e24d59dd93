/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_CONTROL_H
#define TEXT_CONTROL_H


#include <Control.h>


class BTextView;
class LineEditPeer;
class TextControlPeer;


/*!	A label and a field for one line of text.
	A text that has changed sends the control's message, if it has one: on Return, which selects all
	as well, and when another view of the window gets the focus. It has changed when it is not what
	it was when the field got the focus, SetText() was called meanwhile, or the message was sent
	last. In a window with a default button Return is that button's.
	The text is bytes: what SetText() was given comes back unchanged until the user edits it. The
	label's column is as wide as the divider says. Belongs to the thread of its window.
*/
class BTextControl : public BControl {
public:
	BTextControl(const char* name, const char* label, const char* initialText, BMessage* message,
		uint32 flags = B_WILL_DRAW | B_NAVIGABLE);
	BTextControl(const char* label, const char* initialText, BMessage* message) = delete;
	BTextControl(BRect frame, const char* name, const char* label, const char* initialText,
		BMessage* message, uint32 resizingMode = 0, uint32 flags = 0)
		= delete;

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
	LineEditPeer* fFieldPeer;
	BTextView* fTextView;
};


#endif // TEXT_CONTROL_H
