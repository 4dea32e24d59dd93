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

#include "RowPainter.h"


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
	RowPainter painter(owner, frame, IsSelected());
	painter.DrawBackground(complete);

	const float left = frame.left + kIconInset;
	if (fBitmap != NULL)
		painter.DrawIcon(fBitmap.get(), left);

	// Placed for the font that the view has before the plain one is set.
	const float baseline = painter.Baseline();
	owner->SetHighColor(painter.TextColor());
	owner->SetFont(be_plain_font, B_FONT_ALL);
	BString text;
	text.SetToFormat("%u", fIconID);
	owner->DrawString(text.String(), BPoint(left + RowPainter::kIconSize + kTextSpacing, baseline));
}
