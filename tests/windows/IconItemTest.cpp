/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "IconItem.h"

#include <gtest/gtest.h>

#include <Bitmap.h>
#include <Font.h>
#include <InterfaceDefs.h>
#include <View.h>

#include "DrawnRow.h"


static BFont
large_font()
{
	BFont font(be_bold_font);
	font.SetSize(30);
	return font;
}


// The number beside the place of a picture, in the plain font, on the baseline that a large font
// has.
static void
draw_number(BView* view, BRect frame, const char* number, color_which color)
{
	const BFont font = large_font();
	font_height height;
	font.GetHeight(&height);
	const float y = frame.top + (frame.Height() + height.ascent - height.descent) / 2;
	view->SetFont(be_plain_font);
	view->SetHighColor(ui_color(color));
	view->DrawString(number, BPoint(frame.left + 30, y));
}


// The item on a view that has the large font.
static std::string
drawn_icon_item(IconItem* item, bool complete = true)
{
	return drawn_row([item, complete](BView* view, BRect frame) {
		const BFont font = large_font();
		view->SetFont(&font);
		item->DrawItem(view, frame, complete);
	});
}


TEST(IconItemTest, Number_StandsOnTheBaselineOfTheViewsFont)
{
	IconItem item(65535, NULL);
	EXPECT_EQ(65535, item.IconID());
	EXPECT_TRUE(drawn_icon_item(&item) == drawn_row([](BView* view, BRect frame) {
		draw_number(view, frame, "65535", B_LIST_ITEM_TEXT_COLOR);
	}));
}


// Whatever its own size.
TEST(IconItemTest, Picture_HasSixteenPixelsEachWay)
{
	for (const auto& [width, height] : {std::pair<int, int>(16, 16), {32, 32}, {1, 40}}) {
		SCOPED_TRACE(width);
		IconItem item(7, new_picture(width, height).release());
		EXPECT_TRUE(drawn_icon_item(&item) == drawn_row([](BView* view, BRect frame) {
			const float top = frame.top + (frame.Height() - 16) / 2;
			view->SetHighColor(0xe0, 0x30, 0x90);
			view->FillRect(BRect(frame.left + 6, top, frame.left + 21, top + 15));
			draw_number(view, frame, "7", B_LIST_ITEM_TEXT_COLOR);
		}));
	}
}


TEST(IconItemTest, SelectedRow_HasTheColorsOfASelection)
{
	IconItem item(7, NULL);
	item.Select();
	for (const bool complete : {false, true}) {
		EXPECT_TRUE(drawn_icon_item(&item, complete) == drawn_row([](BView* view, BRect frame) {
			fill_selected(view, frame);
			draw_number(view, frame, "7", B_LIST_SELECTED_ITEM_TEXT_COLOR);
		}));
	}
}


TEST(IconItemTest, Rows_AreOfOneHeight)
{
	IconItem item(5, NULL);
	BView view("owner", B_WILL_DRAW);
	for (const float size : {8.0f, 12.0f, 40.0f}) {
		BFont font(be_plain_font);
		font.SetSize(size);
		item.Update(&view, &font);
		EXPECT_FLOAT_EQ(22, item.Height());
	}
}
