/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// The part of BView that draws.

#include <View.h>

#include <QWidget>

#include <Bitmap.h>
#include <GeometryConversion.h>
#include <StrictChecks.h>
#include <ViewPeer.h>


// Differs from Haiku: bitmaps and colors are laid over what is there by their alpha, whatever is
// set.
void
BView::SetDrawingMode(drawing_mode /*mode*/)
{
	CHECK_LOCKED(Looper());
}


void
BView::SetBlendingMode(source_alpha /*sourceAlpha*/, alpha_function /*alphaFunction*/)
{
	CHECK_LOCKED(Looper());
}


void
BView::SetViewColor(rgb_color color)
{
	CHECK_LOCKED(Looper());
	fPeer->GetCanvas()->viewColor = color;
	fPeer->ColorsChanged();
	Invalidate();
}


rgb_color
BView::ViewColor() const
{
	CHECK_LOCKED(Looper());
	return fPeer->GetCanvas()->viewColor;
}


void
BView::SetViewUIColor(color_which which, float tint)
{
	CHECK_LOCKED(Looper());
	SetViewColor(tint_color(ui_color(which), tint));
}


void
BView::SetHighColor(rgb_color color)
{
	CHECK_LOCKED(Looper());
	if (fPeer->GetCanvas()->highColor == color)
		return;
	fPeer->GetCanvas()->highColor = color;
	fPeer->ColorsChanged();
}


void
BView::SetHighColor(uint8 red, uint8 green, uint8 blue, uint8 alpha)
{
	CHECK_LOCKED(Looper());
	SetHighColor(make_color(red, green, blue, alpha));
}


rgb_color
BView::HighColor() const
{
	CHECK_LOCKED(Looper());
	return fPeer->GetCanvas()->highColor;
}


void
BView::SetHighUIColor(color_which which, float tint)
{
	CHECK_LOCKED(Looper());
	SetHighColor(tint_color(ui_color(which), tint));
}


void
BView::SetLowColor(rgb_color color)
{
	CHECK_LOCKED(Looper());
	if (fPeer->GetCanvas()->lowColor == color)
		return;
	fPeer->GetCanvas()->lowColor = color;
	fPeer->ColorsChanged();
}


void
BView::SetLowUIColor(color_which which, float tint)
{
	CHECK_LOCKED(Looper());
	SetLowColor(tint_color(ui_color(which), tint));
}


// #pragma mark - Text


/*!	Takes over what the mask names. */
void
BView::SetFont(const BFont* font, uint32 mask)
{
	CHECK_LOCKED(Looper());
	if (font == NULL)
		return;

	BFont changed = fPeer->GetCanvas()->font;
	if ((mask & B_FONT_SIZE) != 0)
		changed.SetSize(font->Size());
	if ((mask & (B_FONT_FACE | B_FONT_FAMILY_AND_STYLE)) != 0)
		changed.SetFace(font->Face());
	if (changed == fPeer->GetCanvas()->font)
		return;

	fPeer->GetCanvas()->font = changed;
	// Whoever draws changes fonts all the time; this says nothing about the view's size then.
	if (fPeer->GetCanvas()->Painter() == NULL)
		fPeer->FontChanged();
}


void
BView::GetFont(BFont* _font) const
{
	CHECK_LOCKED(Looper());
	*_font = fPeer->GetCanvas()->font;
}


void
BView::GetFontHeight(font_height* _height) const
{
	fPeer->GetCanvas()->font.GetHeight(_height);
}


/*!	In pixels. */
float
BView::StringWidth(const char* string) const
{
	return fPeer->GetCanvas()->font.StringWidth(string);
}


void
BView::TruncateString(BString* inOut, uint32 mode, float width) const
{
	fPeer->GetCanvas()->font.TruncateString(inOut, mode, width);
}


/*!	\param location Where the baseline starts. */
void
BView::DrawString(const char* string, BPoint location, escapement_delta* /*delta*/)
{
	CHECK_LOCKED(Looper());
	if (string != NULL)
		fPeer->GetCanvas()->DrawString(string, location);
}


// #pragma mark - Shapes


void
BView::StrokeLine(BPoint start, BPoint end, ::pattern pattern)
{
	CHECK_LOCKED(Looper());
	fPeer->GetCanvas()->StrokeLine(start, end, pattern);
}


void
BView::StrokeRect(BRect rect, ::pattern pattern)
{
	CHECK_LOCKED(Looper());
	fPeer->GetCanvas()->StrokeRect(rect, pattern);
}


void
BView::FillRect(BRect rect, ::pattern pattern)
{
	CHECK_LOCKED(Looper());
	fPeer->GetCanvas()->FillRect(rect, pattern);
}


void
BView::StrokeEllipse(BRect rect, ::pattern pattern)
{
	CHECK_LOCKED(Looper());
	fPeer->GetCanvas()->StrokeEllipse(rect, pattern);
}


void
BView::FillEllipse(BRect rect, ::pattern pattern)
{
	CHECK_LOCKED(Looper());
	fPeer->GetCanvas()->FillEllipse(rect, pattern);
}


/*!	In its own size, a pixel for a pixel of the view. */
void
BView::DrawBitmap(const BBitmap* bitmap, BPoint where)
{
	CHECK_LOCKED(Looper());
	if (bitmap == NULL)
		return;

	const BRect bounds = bitmap->Bounds();
	DrawBitmap(bitmap,
		BRect(where.x, where.y, where.x + bounds.Width(), where.y + bounds.Height()));
}


/*!	Scaled, so that it fills the rectangle. */
void
BView::DrawBitmap(const BBitmap* bitmap, BRect viewRect)
{
	CHECK_LOCKED(Looper());
	if (bitmap != NULL && bitmap->IsValid())
		fPeer->GetCanvas()->DrawBitmap(bitmap, viewRect);
}


/*!	Has everything drawn again. */
void
BView::Invalidate()
{
	CHECK_LOCKED(Looper());
	fPeer->Widget()->update();
}
