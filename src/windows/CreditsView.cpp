/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "CreditsView.h"

#include <cstring>

#include <Font.h>
#include <InterfaceDefs.h>
#include <Message.h>
#include <MessageRunner.h>
#include <Messenger.h>

#include "AppMessages.h"


static const char* const kClientHeading = "The client";
static const char* const kPlatformHeading = "Stands on";
static const char* const kMakingHeading = "Made with";

static const char* const kCreditsLines[] = {
	kClientHeading,
	"Protocol client",
	"Chat, messages and users",
	"Files and transfers",
	"Tracker browser",
	"Icons and logo",
	"",
	kPlatformHeading,
	"The Haiku kits",
	"Qt 6 on Linux",
	"The fonts of your system",
	"",
	kMakingHeading,
	"CMake and Ninja",
	"GoogleTest and libFuzzer",
	"GCC and Clang",
	"",
	"Thank you for connecting",
	NULL,
};

static const bigtime_t kTickInterval = 50000;
static const float kPixelsPerTick = 0.5f;
static const float kWidth = 260.0f;
static const float kHeight = 100.0f;
static const float kFontSize = 12.0f;


static bool
is_heading(const char* line)
{
	return strcmp(line, kClientHeading) == 0 || strcmp(line, kPlatformHeading) == 0
		|| strcmp(line, kMakingHeading) == 0;
}


CreditsView::CreditsView()
	: BView("creditsView", B_WILL_DRAW | B_FULL_UPDATE_ON_RESIZE),
	  fScrollOffset(0),
	  fLineHeight(16.0f),
	  fTotalHeight(0)
{
	SetViewUIColor(B_PANEL_BACKGROUND_COLOR);
	for (const char* const* line = kCreditsLines; *line != NULL; line++)
		fTotalHeight += fLineHeight;
}


CreditsView::~CreditsView() = default;


void
CreditsView::AttachedToWindow()
{
	BView::AttachedToWindow();

	const BMessage tick(kMsgScroll);
	fRunner.reset(new BMessageRunner(BMessenger(this), &tick, kTickInterval, -1));
}


void
CreditsView::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case kMsgScroll:
			_Scroll();
			break;
		default:
			BView::MessageReceived(message);
	}
}


void
CreditsView::Draw(BRect)
{
	const BRect bounds = Bounds();
	SetLowUIColor(B_PANEL_BACKGROUND_COLOR);
	FillRect(bounds, B_SOLID_LOW);

	BFont headingFont(be_bold_font);
	headingFont.SetSize(kFontSize);
	BFont textFont(be_plain_font);
	textFont.SetSize(kFontSize);
	SetHighColor(0, 0, 0);

	float y = bounds.Height() - fScrollOffset;
	for (const char* const* line = kCreditsLines; *line != NULL; line++, y += fLineHeight) {
		if (y < -fLineHeight || y > bounds.Height() + fLineHeight)
			continue;
		SetFont(is_heading(*line) ? &headingFont : &textFont);
		DrawString(*line, BPoint((bounds.Width() - StringWidth(*line)) / 2, y));
	}
}


BSize
CreditsView::MinSize()
{
	return BSize(kWidth, kHeight);
}


BSize
CreditsView::MaxSize()
{
	return BSize(B_SIZE_UNLIMITED, kHeight);
}


BSize
CreditsView::PreferredSize()
{
	return MinSize();
}


void
CreditsView::_Scroll()
{
	fScrollOffset += kPixelsPerTick;
	if (fScrollOffset > fTotalHeight + Bounds().Height())
		fScrollOffset = 0;
	Invalidate();
}
