/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <StringView.h>

#include <StringViewPeer.h>


BStringView::BStringView(const char* name, const char* text, uint32 flags)
	: BView(new StringViewPeer, name, flags),
	  fText(text)
{
	SetHighUIColor(B_PANEL_TEXT_COLOR);
	_Peer()->ScheduleFlush();
	_Peer()->FlushNow();
}


BStringView::~BStringView() = default;


/*!	\param text Bytes, shown as UTF-8; NULL is the empty text. */
void
BStringView::SetText(const char* text)
{
	if (fText == text)
		return;
	fText = text;
	_Peer()->ScheduleFlush();
}


void
BStringView::SetAlignment(alignment flag)
{
	_Peer()->SetAlignment(flag);
}


alignment
BStringView::Alignment() const
{
	return _Peer()->Alignment();
}


/*!	\param truncationMode Which end of a text that is too long is left out, so that the view may be narrower than it. */
void
BStringView::SetTruncation(uint32 truncationMode)
{
	_Peer()->SetTruncation(truncationMode);
}


uint32
BStringView::Truncation() const
{
	return _Peer()->Truncation();
}


StringViewPeer*
BStringView::_Peer() const
{
	return static_cast<StringViewPeer*>(ViewPeer::Of(this));
}
