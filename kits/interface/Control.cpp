/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Control.h>

#include <OS.h>
#include <StrictChecks.h>
#include <ViewPeer.h>
#include <Window.h>


/*!	\param peer Owned by the control.
	\param message Likewise; NULL for none.
*/
BControl::BControl(ViewPeer* peer, const char* name, const char* label, BMessage* message,
	uint32 flags)
	: BView(peer, name, flags),
	  BInvoker(message, NULL),
	  fLabel(label),
	  fEnabled(true)
{
}


/*!	The window becomes the target, if there is none. */
void
BControl::AttachedToWindow()
{
	if (!Messenger().IsValid())
		SetTarget(Window());
}


void
BControl::SetEnabled(bool enabled)
{
	CHECK_LOCKED(Looper());
	fEnabled = enabled;
	ViewPeer::Of(this)->ScheduleFlush();
}


/*!	Sends a copy of the given message, or of the control's own.
	\return \c B_BAD_VALUE when there is neither.
*/
status_t
BControl::Invoke(BMessage* message)
{
	CHECK_LOCKED(Looper());
	if (message == NULL)
		message = Message();
	if (message == NULL)
		return B_BAD_VALUE;

	BMessage copy(*message);
	copy.AddInt64("when", system_time());
	copy.AddPointer("source", this);
	const BMessenger sender(this);
	copy.AddData("be:sender", B_MESSENGER_TYPE, &sender, sizeof(sender));
	copy.AddInt32("be:value", 0);
	return BInvoker::Invoke(&copy);
}
