/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "BannerView.h"

#include <gtest/gtest.h>

#include <Bitmap.h>
#include <DataIO.h>
#include <InterfaceDefs.h>
#include <LayoutBuilder.h>
#include <TranslationUtils.h>

#include "DrawnRow.h"
#include "UserInput.h"
#include "WaitFor.h"
#include "WindowMain.h"
#include "WindowProbe.h"


static const unsigned kLeftEdge = 0x00a040;
static const unsigned kPicture = 0xe03090;
static const unsigned kRightEdge = 0x2040c0;


static std::string
pixel_bytes(unsigned color)
{
	return {static_cast<char>(color >> 16), static_cast<char>(color >> 8),
		static_cast<char>(color)};
}


// A picture whose first and last columns have colors of their own.
static BBitmap*
new_banner(int width, int height)
{
	std::string pixels;
	for (int y = 0; y < height; y++) {
		pixels += pixel_bytes(kLeftEdge);
		for (int x = 1; x < width - 1; x++)
			pixels += pixel_bytes(kPicture);
		pixels += pixel_bytes(kRightEdge);
	}
	const std::string file = picture_file(width, height, pixels);
	BMemoryIO stream(static_cast<const void*>(file.data()), file.size());
	return BTranslationUtils::GetBitmap(&stream);
}


/*!	A view of 300 pixels that stays as wide, whatever it shows. */
class BannerViewTest : public testing::Test {
protected:
	BannerViewTest()
		: fWindow(new BWindow(BRect(100, 100, 399, 199), "banner", B_TITLED_WINDOW, 0)),
		  fView(new BannerView())
	{
		fView->SetExplicitMinSize(BSize(0, 20));
		BLayoutBuilder::Group<>(fWindow.Window(), B_VERTICAL, 0).Add(fView).AddGlue();
		fWindow.Window()->Show();
		HoldWindows();
		EXPECT_SOON(fView->Frame().Width() == 299);
	}

	void _Show(int width, int height)
	{
		fView->SetBitmap(new_banner(width, height));
		fWindow.Window()->Layout(true);
		ASSERT_EQ(299, fView->Frame().Width());
	}

	unsigned _Pixel(float x, float y) { return pixel_of(fView, BPoint(x, y)); }

	static unsigned _Background()
	{
		const rgb_color color = ui_color(B_PANEL_BACKGROUND_COLOR);
		return static_cast<unsigned int>(color.red) << 16
			| static_cast<unsigned int>(color.green) << 8 | color.blue;
	}

	WindowProbe fWindow;
	BannerView* fView;
};


TEST_F(BannerViewTest, NoPicture_IsBackground)
{
	EXPECT_EQ(_Background(), _Pixel(0, 0));
	EXPECT_EQ(_Background(), _Pixel(150, 10));
}


TEST_F(BannerViewTest, Picture_IsCenteredAtTheTop)
{
	_Show(100, 20);
	EXPECT_EQ(_Background(), _Pixel(99, 0));
	EXPECT_EQ(kLeftEdge, _Pixel(100, 0));
	EXPECT_EQ(kPicture, _Pixel(150, 10));
	EXPECT_EQ(kRightEdge, _Pixel(199, 0));
	EXPECT_EQ(_Background(), _Pixel(200, 0));
	EXPECT_EQ(kLeftEdge, _Pixel(100, 19));
}


TEST_F(BannerViewTest, OddSpace_IsRoundedDown)
{
	_Show(101, 20);
	EXPECT_EQ(_Background(), _Pixel(98, 0));
	EXPECT_EQ(kLeftEdge, _Pixel(99, 0));
	EXPECT_EQ(kRightEdge, _Pixel(199, 0));
}


TEST_F(BannerViewTest, WiderPicture_BeginsAtTheLeftAndIsCut)
{
	_Show(400, 20);
	EXPECT_EQ(kLeftEdge, _Pixel(0, 0));
	EXPECT_EQ(kPicture, _Pixel(299, 0));
}


TEST_F(BannerViewTest, OtherPicture_ReplacesTheFirst)
{
	_Show(100, 20);
	_Show(50, 20);
	EXPECT_EQ(_Background(), _Pixel(110, 0));
	EXPECT_EQ(kLeftEdge, _Pixel(125, 0));
	fView->SetBitmap(NULL);
	EXPECT_EQ(_Background(), _Pixel(150, 0));
}
