/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Control.h>

#include <OS.h>
#include <ViewPeer.h>
#include <Window.h>


/*!	\param message Owned by the control; NULL for none. */
BControl::BControl(const char* name, const char* label, BMessage* message, uint32 flags)
	: BControl(new ViewPeer, name, label, message, flags)
{
}


/*!	\param peer Owned by the control. */
BControl::BControl(ViewPeer* peer, const char* name, const char* label, BMessage* message,
	uint32 flags)
	: BView(peer, name, flags),
	  BInvoker(message, NULL),
	  fLabel(label),
	  fValue(B_CONTROL_OFF),
	  fEnabled(true)
{
}


BControl::~BControl() = default;


/*!	The window becomes the target, if there is none. */
void
BControl::AttachedToWindow()
{
	if (!Messenger().IsValid())
		SetTarget(Window());
}


/*!	\param label Bytes, shown as UTF-8; NULL is the empty text. */
void
BControl::SetLabel(const char* label)
{
	fLabel = label;
	ViewPeer::Of(this)->ScheduleFlush();
}


void
BControl::SetValue(int32 value)
{
	fValue = value;
}


void
BControl::SetEnabled(bool enabled)
{
	fEnabled = enabled;
	ViewPeer::Of(this)->ScheduleFlush();
}


/*!	Sends a copy of the given message, or of the control's own.
	\return \c B_BAD_VALUE when there is neither.
*/
status_t
BControl::Invoke(BMessage* message)
{
	if (message == NULL)
		message = Message();
	if (message == NULL)
		return B_BAD_VALUE;

	BMessage copy(*message);
	copy.AddInt64("when", system_time());
	copy.AddPointer("source", this);
	copy.AddInt32("be:value", fValue);
	return BInvoker::Invoke(&copy);
}


/*!	Only some controls show pictures. */
status_t
BControl::SetIcon(const BBitmap* /*bitmap*/, uint32 /*flags*/)
{
	return B_UNSUPPORTED;
}
