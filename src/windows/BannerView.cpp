/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "BannerView.h"

#include <algorithm>
#include <cmath>

#include <Bitmap.h>
#include <InterfaceDefs.h>


BannerView::BannerView()
	: BView("banner", B_WILL_DRAW | B_FULL_UPDATE_ON_RESIZE, NULL)
{
	SetViewUIColor(B_PANEL_BACKGROUND_COLOR);
}


BannerView::~BannerView() = default;


/*!	A banner that is wider than the view starts at the left edge and loses its right end. */
void
BannerView::Draw(BRect)
{
	if (fBitmap == NULL)
		return;

	const float space = Bounds().Width() - fBitmap->Bounds().Width();
	const float left = std::max(std::floor(space / 2), 0.0f);
	SetDrawingMode(B_OP_COPY);
	DrawBitmap(fBitmap.get(), BPoint(left, 0));
}


/*!	The picture's size in pixels: the window cannot be made narrower than its banner. */
BSize
BannerView::MinSize()
{
	if (fBitmap == NULL)
		return BSize(0, 0);
	const BRect bounds = fBitmap->Bounds();
	return BSize(bounds.Width() + 1, bounds.Height() + 1);
}


BSize
BannerView::MaxSize()
{
	return BSize(B_SIZE_UNLIMITED, MinSize().height);
}


BSize
BannerView::PreferredSize()
{
	return MinSize();
}


/*!	Replaces the picture.
	\param bitmap Owned by the view from now on; \c NULL for no banner.
*/
void
BannerView::SetBitmap(BBitmap* bitmap)
{
	fBitmap.reset(bitmap);
	InvalidateLayout();
	Invalidate();
}
