/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <SeparatorView.h>

#include <GeometryConversion.h>


BSeparatorView::BSeparatorView(orientation orientation, border_style border)
	: BView(NULL, B_WILL_DRAW),
	  fOrientation(orientation),
	  fBorder(border)
{
	SetViewUIColor(B_PANEL_BACKGROUND_COLOR);
}


/*!	A dark line, and for the fancy border a light one below or beside it. */
void
BSeparatorView::Draw(BRect /*updateRect*/)
{
	if (fBorder == B_NO_BORDER)
		return;

	const BRect bounds = Bounds();
	const BPoint step = fOrientation == B_HORIZONTAL ? BPoint(0, 1) : BPoint(1, 0);
	const BPoint end = fOrientation == B_HORIZONTAL ? bounds.RightTop() : bounds.LeftBottom();
	SetHighUIColor(B_PANEL_BACKGROUND_COLOR, B_DARKEN_2_TINT);
	StrokeLine(bounds.LeftTop(), end);
	if (fBorder == B_FANCY_BORDER) {
		SetHighUIColor(B_PANEL_BACKGROUND_COLOR, B_LIGHTEN_2_TINT);
		StrokeLine(bounds.LeftTop() + step, end + step);
	}
}


BSize
BSeparatorView::MinSize()
{
	const float thickness = fBorder == B_FANCY_BORDER ? 1 : 0;
	return compose_size(BSize(thickness, thickness), ExplicitMinSize());
}


BSize
BSeparatorView::MaxSize()
{
	BSize size = MinSize();
	if (fOrientation == B_HORIZONTAL)
		size.width = B_SIZE_UNLIMITED;
	else
		size.height = B_SIZE_UNLIMITED;
	return compose_size(size, ExplicitMaxSize());
}


BSize
BSeparatorView::PreferredSize()
{
	return MinSize();
}
