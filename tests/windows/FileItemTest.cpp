/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FileItem.h"

#include <cmath>
#include <cstdint>
#include <memory>

#include <gtest/gtest.h>

#include <Bitmap.h>
#include <Font.h>
#include <InterfaceDefs.h>
#include <View.h>

#include "DrawnRow.h"
#include "HostileTexts.h"


static const float kShapeTextLeft = 4 + 10 + 8;
static const float kIconTextLeft = 4 + 16 + 6;


// The texts of a row; eight pixels at least are between them.
static void
draw_texts(BView* view, BRect frame, float left, const char* name, const char* right,
	color_which nameColor = B_LIST_ITEM_TEXT_COLOR)
{
	const float y = middle_baseline(view, frame);
	const float rightLeft = frame.right - 6 - view->StringWidth(right);
	BString shown(name);
	view->TruncateString(&shown, B_TRUNCATE_END, rightLeft - 8 - (frame.left + left));
	draw_line(view, frame, left, shown.String(), nameColor);
	view->SetHighColor(tint_color(ui_color(B_PANEL_BACKGROUND_COLOR), B_DARKEN_2_TINT));
	view->DrawString(right, BPoint(rightLeft, y));
}


static BRect
shape_of(BRect frame)
{
	const float top = frame.top + (frame.Height() - 10) / 2;
	return BRect(frame.left + 4, top, frame.left + 14, top + 10);
}


static void
draw_circle(BView* view, BRect frame)
{
	view->SetHighColor(120, 150, 200);
	view->FillEllipse(shape_of(frame));
	view->SetHighColor(tint_color(make_color(120, 150, 200), B_DARKEN_2_TINT));
	view->StrokeEllipse(shape_of(frame));
}


static std::string
drawn_circle(const char* name, const char* right)
{
	return drawn_row([=](BView* view, BRect frame) {
		draw_circle(view, frame);
		draw_texts(view, frame, kShapeTextLeft, name, right);
	});
}


static std::string
drawn_square(const char* name)
{
	return drawn_row([=](BView* view, BRect frame) {
		view->SetHighColor(220, 180, 50);
		view->FillRect(shape_of(frame));
		view->SetHighColor(tint_color(make_color(220, 180, 50), B_DARKEN_2_TINT));
		view->StrokeRect(shape_of(frame));
		draw_texts(view, frame, kShapeTextLeft, name, "folder");
	});
}


static std::string
drawn_icon(const BBitmap* icon, const char* name, const char* right)
{
	return drawn_row([=](BView* view, BRect frame) {
		const float top = frame.top + (frame.Height() - 16) / 2;
		view->DrawBitmap(icon, BPoint(frame.left + 4, top));
		draw_texts(view, frame, kIconTextLeft, name, right);
	});
}


static std::string
drawn_file(const char* name, int32 size, BBitmap* stuffIt = NULL, BBitmap* image = NULL)
{
	FileItem item(name, "TEXT", "ttxt", size, NULL, stuffIt, image);
	return drawn_item(&item);
}


TEST(FileItemTest, Size_IsInTheUnitThatFits)
{
	const struct {
		int32 size;
		const char* text;
	} cases[] = {
		{0, "0 B"},
		{1023, "1023 B"},
		{1024, "1.0 KB"},
		{1536, "1.5 KB"},
		{1048575, "1024.0 KB"},
		{1048576, "1.0 MB"},
		{2147483647, "2048.0 MB"},
		// What is too large for the field has become negative.
		{-1, "-1 B"},
		{INT32_MIN, "-2147483648 B"},
	};
	for (const auto& expected : cases) {
		SCOPED_TRACE(expected.size);
		EXPECT_TRUE(drawn_file("name", expected.size) == drawn_circle("name", expected.text));
	}
}


TEST(FileItemTest, OtherSizes_AreDrawnDifferently)
{
	EXPECT_FALSE(drawn_file("name", 1023) == drawn_file("name", 1024));
	EXPECT_FALSE(drawn_file("name", 0) == drawn_file("eman", 0));
}


TEST(FileItemTest, Folder_SaysSoInPlaceOfASize)
{
	FileItem item("name", "fldr", "", 4096, NULL, NULL, NULL);
	EXPECT_TRUE(drawn_item(&item) == drawn_square("name"));
}


TEST(FileItemTest, FolderWithAPicture_ShowsIt)
{
	const std::unique_ptr<BBitmap> icon = new_picture(16, 16);
	ASSERT_NE(nullptr, icon);
	FileItem item("name", "fldr", "", 0, icon.get(), NULL, NULL);
	EXPECT_TRUE(drawn_item(&item) == drawn_icon(icon.get(), "name", "folder"));
}


// A folder without its picture is not taken for the file that its name promises.
TEST(FileItemTest, FolderNamedLikeAnArchive_StaysASquare)
{
	const std::unique_ptr<BBitmap> icon = new_picture(16, 16);
	FileItem item("name.sit", "fldr", "", 0, NULL, icon.get(), icon.get());
	EXPECT_TRUE(drawn_item(&item) == drawn_square("name.sit"));
}


TEST(FileItemTest, Name_ChoosesThePicture)
{
	const std::unique_ptr<BBitmap> icon = new_picture(16, 16);
	const struct {
		std::vector<const char*> names;
		bool isArchive;
		bool isImage;
	} kinds[] = {
		{{"a.sit", "a.SEA", "b.HqX", ".sit"}, true, false},
		{{"a.jpg", "a.PNG", "a.gif", "a.bmp", "a.tif", "a.psd", "a.pcx", "a.JPEG", "a.tiff",
			 ".jpeg", ".jpg"},
			false, true},
		{{"", "sit", "a.sitx", "a.sit ", "jpeg", "a.txt", "png"}, false, false},
	};
	for (const auto& kind : kinds) {
		for (const char* name : kind.names) {
			SCOPED_TRACE(name);
			const std::string shape = drawn_circle(name, "5 B");
			const std::string picture = drawn_icon(icon.get(), name, "5 B");
			EXPECT_TRUE(drawn_file(name, 5, icon.get()) == (kind.isArchive ? picture : shape));
			EXPECT_TRUE(drawn_file(name, 5, NULL, icon.get()) == (kind.isImage ? picture : shape));
		}
	}
}


TEST(FileItemTest, LongType_IsCutToFourCharacters)
{
	const FileItem folder("name", "fldrs", "creator", 0, NULL, NULL, NULL);
	EXPECT_STREQ("fldr", folder.FileType());
	EXPECT_TRUE(folder.IsFolder());
	const FileItem file("name", "Fldr", "", 0, NULL, NULL, NULL);
	EXPECT_FALSE(file.IsFolder());
	const FileItem shorter("name", "fld", "", 0, NULL, NULL, NULL);
	EXPECT_STREQ("fld", shorter.FileType());
	EXPECT_FALSE(shorter.IsFolder());
}


TEST(FileItemTest, LongName_IsCutBeforeTheSize)
{
	const std::string name(251, 'n');
	EXPECT_TRUE(drawn_file(name.c_str(), 5) == drawn_circle(name.c_str(), "5 B"));
}


TEST(FileItemTest, SelectedRow_HasTheBackgroundOfASelection)
{
	FileItem item("name", "TEXT", "", 5, NULL, NULL, NULL);
	item.Select();
	const std::string drawn = drawn_item(&item);
	EXPECT_TRUE(drawn == drawn_item(&item, false));
	EXPECT_TRUE(drawn == drawn_row([](BView* view, BRect frame) {
		fill_selected(view, frame);
		draw_circle(view, frame);
		draw_texts(view, frame, kShapeTextLeft, "name", "5 B", B_LIST_SELECTED_ITEM_TEXT_COLOR);
	}));
}


TEST(FileItemTest, HostileName_IsDrawnAsItStands)
{
	for (const std::string& name : hostile_texts()) {
		SCOPED_TRACE(name);
		EXPECT_TRUE(drawn_file(name.c_str(), 5) == drawn_circle(name.c_str(), "5 B"));
	}
}


TEST(FileItemTest, NameThatJustFits_HasNoToolTip)
{
	const std::unique_ptr<BBitmap> icon = new_picture(16, 16);
	const char* name = "a <b>name</b> & more";
	const struct {
		const char* type;
		BBitmap* icon;
		float left;
		const char* right;
	} cases[] = {
		{"TEXT", NULL, kShapeTextLeft, "5 B"},
		{"fldr", NULL, kShapeTextLeft, "folder"},
		{"fldr", icon.get(), kIconTextLeft, "folder"},
	};
	for (const auto& row : cases) {
		SCOPED_TRACE(row.right);
		const FileItem item(name, row.type, "", 5, row.icon, NULL, NULL);
		const float width = row.left + std::ceil(be_plain_font->StringWidth(name)) + 8
			+ std::ceil(be_plain_font->StringWidth(row.right)) + 6;
		EXPECT_STREQ("", item.ToolTipText(width).String());
		EXPECT_STREQ(name, item.ToolTipText(width - 2).String());
	}
}


// At every width either all of it is drawn, or it is the tool tip.
TEST(FileItemTest, NameIsDrawnWhole_ExactlyWithoutAToolTip)
{
	const char* name = "name";
	FileItem item(name, "TEXT", "", 5, NULL, NULL, NULL);
	int32 countWhole = 0;
	for (float width = 60; width < 90; width++) {
		SCOPED_TRACE(width);
		const std::string drawn = drawn_item(&item, false, width);
		const std::string whole = drawn_row(
			[name](BView* view, BRect frame) {
				draw_circle(view, frame);
				draw_texts(view, BRect(frame.left, frame.top, frame.left + 200, frame.bottom),
					kShapeTextLeft, name, "");
				draw_texts(view, frame, 0, "", "5 B");
			},
			width);
		const bool isWhole = drawn == whole;
		countWhole += isWhole ? 1 : 0;
		EXPECT_STREQ(isWhole ? "" : name, item.ToolTipText(width).String());
	}
	EXPECT_GT(countWhole, 0);
	EXPECT_LT(countWhole, 30);
}
