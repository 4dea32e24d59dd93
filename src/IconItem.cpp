/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "IconItem.h"

#include <Bitmap.h>
#include <Font.h>
#include <InterfaceDefs.h>
#include <String.h>
#include <View.h>


static const float kIconSize = 16.0f;
static const float kIconInset = 6.0f;
static const float kTextSpacing = 8.0f;
static const float kRowHeight = 22.0f;


/*!	\param bitmap Owned by the item from here on. */
IconItem::IconItem(uint16 id, BBitmap* bitmap)
	: BListItem(0, true),
	  fIconID(id),
	  fBitmap(bitmap)
{
}


IconItem::~IconItem() = default;


void
IconItem::Update(BView* owner, const BFont* font)
{
	BListItem::Update(owner, font);
	SetHeight(kRowHeight);
}


void
IconItem::DrawItem(BView* owner, BRect frame, bool complete)
{
	if (IsSelected() || complete) {
		if (IsSelected())
			owner->SetHighColor(ui_color(B_LIST_SELECTED_BACKGROUND_COLOR));
		else
			owner->SetHighColor(owner->ViewColor());
		owner->FillRect(frame);
	}

	const float left = frame.left + kIconInset;
	if (fBitmap != nullptr) {
		const float top = frame.top + (frame.Height() - kIconSize) / 2;
		owner->SetDrawingMode(B_OP_ALPHA);
		owner->SetBlendingMode(B_PIXEL_ALPHA, B_ALPHA_OVERLAY);
		owner->DrawBitmap(fBitmap.get(),
			BRect(left, top, left + kIconSize - 1, top + kIconSize - 1));
		owner->SetDrawingMode(B_OP_COPY);
	}

	font_height height;
	owner->GetFontHeight(&height);
	const float baseline = frame.top + (frame.Height() + height.ascent - height.descent) / 2;
	owner->SetHighColor(
		ui_color(IsSelected() ? B_LIST_SELECTED_ITEM_TEXT_COLOR : B_LIST_ITEM_TEXT_COLOR));
	owner->SetFont(be_plain_font, B_FONT_ALL);
	BString text;
	text.SetToFormat("%u", fIconID);
	owner->DrawString(text.String(), BPoint(left + kIconSize + kTextSpacing, baseline));
}
