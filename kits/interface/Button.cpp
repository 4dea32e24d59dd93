/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Button.h>

#include <Bitmap.h>
#include <ButtonPeer.h>
#include <StrictChecks.h>
#include <Window.h>


BButton::BButton(const char* name, const char* label, BMessage* message, uint32 flags)
	: BControl(new ButtonPeer, name, label, message, flags),
	  fButtonPeer(static_cast<ButtonPeer*>(ViewPeer::Of(this)))
{
	fButtonPeer->ScheduleFlush();
	fButtonPeer->FlushNow();
}


void
BButton::AttachedToWindow()
{
	BControl::AttachedToWindow();
	if (IsDefault())
		Window()->SetDefaultButton(this);
}


/*!	\param icon Copied, and shown in front of the label, at most 24 pixels large; NULL for none. */
status_t
BButton::SetIcon(const BBitmap* icon, uint32 /*flags*/)
{
	CHECK_LOCKED(Looper());
	if (icon != NULL && !icon->IsValid())
		return B_BAD_VALUE;
	fButtonPeer->SetIcon(icon);
	return B_OK;
}


/*!	Makes the button the one that Return presses in its window, in the place of the one that was it.
*/
void
BButton::MakeDefault(bool flag)
{
	CHECK_LOCKED(Looper());
	if (flag == IsDefault())
		return;

	fButtonPeer->SetDefault(flag);
	if (Window() == NULL)
		return;
	if (flag)
		Window()->SetDefaultButton(this);
	else if (Window()->DefaultButton() == this)
		Window()->SetDefaultButton(NULL);
}


bool
BButton::IsDefault() const
{
	CHECK_LOCKED(Looper());
	return fButtonPeer->IsDefault();
}
