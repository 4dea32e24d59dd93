/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <StringView.h>

#include <StrictChecks.h>
#include <StringViewPeer.h>


BStringView::BStringView(const char* name, const char* text, uint32 flags)
	: BView(new StringViewPeer, name, flags),
	  fStringPeer(static_cast<StringViewPeer*>(ViewPeer::Of(this))),
	  fText(text)
{
	SetHighUIColor(B_PANEL_TEXT_COLOR);
	fStringPeer->ScheduleFlush();
	fStringPeer->FlushNow();
}


/*!	\param text Bytes, shown as UTF-8; NULL is the empty text. */
// Differs from Haiku: a line of more than 1,000 characters is only as wide as these.
void
BStringView::SetText(const char* text)
{
	CHECK_LOCKED(Looper());
	if (fText == text)
		return;
	fText = text;
	fStringPeer->ScheduleFlush();
}


/*!	\param truncationMode Which end of a text that is too long is left out, so that the view may be
	narrower than it.
*/
void
BStringView::SetTruncation(uint32 truncationMode)
{
	CHECK_LOCKED(Looper());
	fStringPeer->SetTruncation(truncationMode);
}
