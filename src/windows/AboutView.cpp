/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "AboutView.h"

#include <Bitmap.h>
#include <Font.h>
#include <InterfaceDefs.h>
#include <String.h>
#include <TranslationUtils.h>


static const char* const kNameLine = "Palimbra - Hotline Client";

static const char* const kTextLines[] = {
	"Written by the Palimbra developers",
	"",
	"With thanks to those who kept Hotline alive",
	"Logo drawn for Palimbra",
	"Come and say hello on a server near you",
	NULL,
};

static const float kTopMargin = 15.0f;
static const float kSideMargin = 30.0f;
static const float kLogoSpacing = 15.0f;
static const float kRuleSpacing = 16.0f;
static const float kNameSpacing = 10.0f;
static const float kSecondRuleSpacing = 18.0f;
static const float kLineHeight = 16.0f;
static const float kEmptyLineHeight = 8.0f;
static const float kWidth = 300.0f;
// What the name between its rules, the lines of text and the bottom margin take.
static const float kNameHeight = 58.0f;
static const float kTextHeight = 72.0f;
static const float kBottomMargin = 10.0f;

static constexpr rgb_color kRuleColor = {180, 180, 180, 255};


AboutView::AboutView(const char* appFolder)
	: BView("aboutView", B_WILL_DRAW | B_FULL_UPDATE_ON_RESIZE)
{
	SetViewUIColor(B_PANEL_BACKGROUND_COLOR);

	BString path;
	path << appFolder << "/logo.png";
	fLogo.reset(BTranslationUtils::GetBitmapFile(path.String()));
}


AboutView::~AboutView() = default;


void
AboutView::Draw(BRect)
{
	float y = _DrawLogo(kTopMargin);
	_DrawRule(y);
	y += kRuleSpacing;

	BFont nameFont(be_bold_font);
	nameFont.SetSize(14.0f);
	SetFont(&nameFont);
	SetHighColor(0, 0, 0);
	_DrawCentered(kNameLine, y);
	y += kNameSpacing;
	_DrawRule(y);
	y += kSecondRuleSpacing;

	BFont textFont(be_plain_font);
	textFont.SetSize(12.0f);
	SetFont(&textFont);
	SetHighColor(0, 0, 0);
	for (const char* const* line = kTextLines; *line != NULL; line++) {
		if ((*line)[0] == '\0') {
			y += kEmptyLineHeight;
			continue;
		}
		_DrawCentered(*line, y);
		y += kLineHeight;
	}
}


BSize
AboutView::MinSize()
{
	float height = kTopMargin + kNameHeight + kTextHeight + kBottomMargin;
	if (fLogo != NULL)
		height += fLogo->Bounds().Height() + kLogoSpacing;
	return BSize(kWidth, height);
}


BSize
AboutView::PreferredSize()
{
	return MinSize();
}


/*!	\return Where to go on below it; \a y itself without a logo. */
float
AboutView::_DrawLogo(float y)
{
	if (fLogo == NULL)
		return y;

	const BRect bounds = fLogo->Bounds();
	SetDrawingMode(B_OP_ALPHA);
	DrawBitmap(fLogo.get(), BPoint((Bounds().Width() - bounds.Width()) / 2, y));
	SetDrawingMode(B_OP_COPY);
	return y + bounds.Height() + kLogoSpacing;
}


void
AboutView::_DrawRule(float y)
{
	SetHighColor(kRuleColor);
	StrokeLine(BPoint(kSideMargin, y), BPoint(Bounds().Width() - kSideMargin, y));
}


void
AboutView::_DrawCentered(const char* text, float y)
{
	DrawString(text, BPoint((Bounds().Width() - StringWidth(text)) / 2, y));
}
