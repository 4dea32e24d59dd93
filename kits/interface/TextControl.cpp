/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextControl.h>


#include <LineEditPeer.h>
#include <StrictChecks.h>
#include <TextControlPeer.h>
#include <TextView.h>


static const char* const kFieldName = "_input_";


/*!	\param message Owned by the control; NULL when it sends nothing. */
BTextControl::BTextControl(const char* name, const char* label, const char* initialText,
	BMessage* message, uint32 flags)
	: BTextControl(new TextControlPeer, name, label, initialText, message, flags)
{
}


/*!	\param peer Owned by the control. */
BTextControl::BTextControl(TextControlPeer* peer, const char* name, const char* label,
	const char* initialText, BMessage* message, uint32 flags)
	: BControl(peer, name, label, message, flags),
	  fControlPeer(peer),
	  fFieldPeer(new LineEditPeer(this)),
	  fTextView(NULL)
{
	fTextView = new BTextView(kFieldName, B_WILL_DRAW | B_NAVIGABLE, fFieldPeer);
	AddChild(fTextView);
	fControlPeer->SetField(fFieldPeer->Widget());
	fControlPeer->SetLabel(label);
	BTextControl::SetText(initialText);
}


/*!	In a control that has the focus, what the user changes is counted from this text on. */
void
BTextControl::SetText(const char* text)
{
	CHECK_LOCKED(Looper());
	fTextView->SetText(text);
	fFieldPeer->BeginAnew();
}


/*!	The bytes of the text, which stay until it is changed. */
const char*
BTextControl::Text() const
{
	CHECK_LOCKED(Looper());
	return fTextView->Text();
}


/*!	\param position How wide the label's column is, in pixels. */
void
BTextControl::SetDivider(float position)
{
	CHECK_LOCKED(Looper());
	fControlPeer->SetDivider(position);
}


float
BTextControl::Divider() const
{
	CHECK_LOCKED(Looper());
	return fControlPeer->Divider();
}


void
BTextControl::SetEnabled(bool enabled)
{
	CHECK_LOCKED(Looper());
	BControl::SetEnabled(enabled);
	fControlPeer->SetEnabled(enabled);
}
