/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// What drawing leaves on the screen, pixel by pixel.

#include <cstring>
#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include <Bitmap.h>
#include <View.h>

#include "UserInput.h"


static const unsigned kBackground = 0xd8d8d8;


/*!	A view that draws what the test says. */
class DrawnView : public BView {
public:
	explicit DrawnView(std::function<void(BView*)> draw)
		: BView("drawn", B_WILL_DRAW),
		  fDraw(std::move(draw))
	{
		SetViewUIColor(B_PANEL_BACKGROUND_COLOR);
	}

	void Draw(BRect) override { fDraw(this); }

private:
	std::function<void(BView*)> fDraw;
};


TEST(DrawingTest, BackgroundAlone_IsLeftByDrawingAtAnotherTime)
{
	DrawnView view([](BView*) {});
	EXPECT_EQ(kBackground, pixel_of(&view, BPoint(5, 5)));
	view.SetViewColor(make_color(1, 2, 3));
	EXPECT_EQ(0x010203u, pixel_of(&view, BPoint(5, 5)));

	const std::string before = picture_of(&view);
	view.SetHighColor(255, 0, 0);
	view.FillRect(BRect(0, 0, 20, 20));
	view.StrokeLine(BPoint(0, 0), BPoint(20, 20));
	view.DrawString("text", BPoint(5, 15));
	EXPECT_TRUE(before == picture_of(&view));
	EXPECT_GT(view.StringWidth("text"), 0);
}


TEST(DrawingTest, Shapes_CoverTheirPixelsAndNoOthers)
{
	const struct {
		const char* name;
		std::function<void(BView*)> draw;
		std::vector<BPoint> covered;
		std::vector<BPoint> left;
	} cases[] = {
		{"filled rect",
			[](BView* owner) {
				owner->FillRect(BRect(2, 3, 4, 5));
			},
			{BPoint(2, 3), BPoint(4, 5)}, {BPoint(1, 3), BPoint(5, 5), BPoint(4, 6)}},
		{"low color",
			[](BView* owner) {
				owner->SetLowColor(owner->HighColor());
				owner->SetHighColor(0, 0, 0);
				owner->FillRect(owner->Bounds(), B_SOLID_LOW);
			},
			{BPoint(5, 5)}, {}},
		{"stroked rect",
			[](BView* owner) {
				owner->StrokeRect(BRect(2, 2, 6, 6));
			},
			{BPoint(2, 2), BPoint(6, 6)}, {BPoint(3, 3), BPoint(7, 6)}},
		{"line",
			[](BView* owner) {
				owner->StrokeLine(BPoint(2, 4), BPoint(8, 4));
			},
			{BPoint(2, 4), BPoint(8, 4)}, {BPoint(1, 4), BPoint(9, 4), BPoint(5, 5), BPoint(5, 3)}},
		{"filled ellipse",
			[](BView* owner) {
				owner->FillEllipse(BRect(2, 2, 14, 14));
			},
			{BPoint(8, 8), BPoint(8, 3)}, {BPoint(2, 2), BPoint(14, 14)}},
	};
	for (const auto& shape : cases) {
		SCOPED_TRACE(shape.name);
		DrawnView view([&](BView* owner) {
			owner->SetHighColor(255, 0, 0);
			shape.draw(owner);
		});
		for (const BPoint& place : shape.covered)
			EXPECT_EQ(0xff0000u, pixel_of(&view, place));
		for (const BPoint& place : shape.left)
			EXPECT_EQ(kBackground, pixel_of(&view, place));
	}
}


TEST(DrawingTest, StrokedEllipse_IsHollow)
{
	DrawnView view([](BView* owner) {
		owner->SetHighColor(0, 0, 255);
		owner->StrokeEllipse(BRect(2, 2, 14, 14));
	});
	EXPECT_EQ(kBackground, pixel_of(&view, BPoint(8, 8)));
	// Its edge is smooth.
	for (const BPoint edge : {BPoint(8, 2), BPoint(2, 8), BPoint(14, 8), BPoint(8, 14)}) {
		const unsigned pixel = pixel_of(&view, edge);
		EXPECT_GT(pixel & 0xff, 0xd8u);
		EXPECT_LT(pixel >> 16, 0x60u);
	}
}


TEST(DrawingTest, Bitmap_CoversItsPlaceByItsAlphaInBothModes_OrFillsARect)
{
	BBitmap bitmap(BRect(0, 0, 1, 0), B_RGBA32);
	const uint8 pixels[8] = {0, 0, 255, 255, 0, 0, 255, 0};
	memcpy(bitmap.Bits(), pixels, 8);
	for (const drawing_mode mode : {B_OP_COPY, B_OP_ALPHA}) {
		SCOPED_TRACE(mode);
		DrawnView view([&](BView* owner) {
			owner->SetDrawingMode(mode);
			owner->SetBlendingMode(B_PIXEL_ALPHA, B_ALPHA_OVERLAY);
			owner->DrawBitmap(&bitmap, BPoint(3, 4));
		});
		EXPECT_EQ(0xff0000u, pixel_of(&view, BPoint(3, 4)));
		EXPECT_EQ(kBackground, pixel_of(&view, BPoint(4, 4)));
		EXPECT_EQ(kBackground, pixel_of(&view, BPoint(3, 5)));
	}

	BBitmap dot(BRect(0, 0, 0, 0), B_RGBA32);
	const uint8 pixel[4] = {0, 255, 0, 255};
	memcpy(dot.Bits(), pixel, 4);
	DrawnView view([&](BView* owner) {
		owner->DrawBitmap(&dot, BRect(2, 2, 17, 17));
	});
	EXPECT_EQ(0x00ff00u, pixel_of(&view, BPoint(2, 2)));
	EXPECT_EQ(0x00ff00u, pixel_of(&view, BPoint(17, 17)));
	EXPECT_EQ(kBackground, pixel_of(&view, BPoint(18, 17)));
}


TEST(DrawingTest, ChangedBitmap_IsDrawnAsItIsNow)
{
	BBitmap bitmap(BRect(0, 0, 0, 0), B_RGBA32);
	DrawnView view([&](BView* owner) {
		owner->DrawBitmap(&bitmap, BPoint(0, 0));
	});
	EXPECT_EQ(kBackground, pixel_of(&view, BPoint(0, 0)));
	const uint8 pixel[4] = {255, 0, 0, 255};
	memcpy(bitmap.Bits(), pixel, 4);
	EXPECT_EQ(0x0000ffu, pixel_of(&view, BPoint(0, 0)));

	static_cast<uint8*>(bitmap.Bits())[1] = 255;
	EXPECT_EQ(0x00ffffu, pixel_of(&view, BPoint(0, 0)));
	static_cast<uint8*>(bitmap.Bits())[1] = 0;
	EXPECT_EQ(0x0000ffu, pixel_of(&view, BPoint(0, 0)));
}


TEST(DrawingTest, String_StandsOnItsBaseline)
{
	DrawnView view([](BView* owner) {
		owner->SetHighColor(0, 0, 0);
		owner->DrawString("|||||", BPoint(5, 20));
	});
	bool isInked = false;
	for (float x = 5; x < 5 + view.StringWidth("|||||"); x++)
		isInked = isInked || pixel_of(&view, BPoint(x, 15)) != kBackground;
	EXPECT_TRUE(isInked);
	for (float x = 0; x < 40; x++)
		EXPECT_EQ(kBackground, pixel_of(&view, BPoint(x, 27)));
}


TEST(DrawingTest, FontChangedWhileDrawing_IsMeasuredAtOnce)
{
	float narrow = 0;
	float wide = 0;
	DrawnView view([&](BView* owner) {
		owner->SetFont(be_plain_font);
		narrow = owner->StringWidth("measure");
		owner->SetFont(be_bold_font);
		wide = owner->StringWidth("measure");
	});
	pixel_of(&view, BPoint(0, 0));
	EXPECT_GT(wide, narrow);
}
