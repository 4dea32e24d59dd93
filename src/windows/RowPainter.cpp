/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RowPainter.h"

#include <Bitmap.h>
#include <Font.h>
#include <InterfaceDefs.h>
#include <View.h>


RowPainter::RowPainter(BView* owner, BRect frame, bool isSelected)
	: fOwner(owner),
	  fFrame(frame),
	  fIsSelected(isSelected)
{
}


/*!	\param complete Whether what was drawn there before has to go, also where the row is not
	selected.
*/
void
RowPainter::DrawBackground(bool complete)
{
	if (fIsSelected)
		fOwner->SetHighColor(ui_color(B_LIST_SELECTED_BACKGROUND_COLOR));
	else if (complete)
		fOwner->SetHighColor(fOwner->ViewColor());
	else
		return;
	fOwner->FillRect(fFrame);
}


/*!	Whatever size the picture has, it fills the same square.
	\param left Of the square, in the view.
*/
void
RowPainter::DrawIcon(const BBitmap* icon, float left)
{
	const float top = fFrame.top + (fFrame.Height() - kIconSize) / 2;
	fOwner->SetDrawingMode(B_OP_ALPHA);
	fOwner->SetBlendingMode(B_PIXEL_ALPHA, B_ALPHA_OVERLAY);
	fOwner->DrawBitmap(icon, BRect(left, top, left + kIconSize - 1, top + kIconSize - 1));
	fOwner->SetDrawingMode(B_OP_COPY);
}


/*!	A disc of a color with an outline that is a little darker. */
void
RowPainter::DrawDisc(float left, float size, rgb_color color)
{
	const BRect disc = CenteredSquare(left, size);
	fOwner->SetHighColor(color);
	fOwner->FillEllipse(disc);
	fOwner->SetHighColor(tint_color(color, B_DARKEN_2_TINT));
	fOwner->StrokeEllipse(disc);
}


/*!	A square that begins at \a left and stands in the middle of the row's height.
	\param size Of the rectangle, which covers one pixel more each way.
*/
BRect
RowPainter::CenteredSquare(float left, float size) const
{
	const float top = fFrame.top + (fFrame.Height() - size) / 2;
	return BRect(left, top, left + size, top + size);
}


/*!	Where a line of text stands in the middle of the row's height, in the view's current font. */
float
RowPainter::Baseline() const
{
	font_height height;
	fOwner->GetFontHeight(&height);
	return fFrame.top + (fFrame.Height() + height.ascent - height.descent) / 2;
}


rgb_color
RowPainter::TextColor() const
{
	return ui_color(fIsSelected ? B_LIST_SELECTED_ITEM_TEXT_COLOR : B_LIST_ITEM_TEXT_COLOR);
}
