/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cmath>

#include <gtest/gtest.h>

#include <Bitmap.h>
#include <Font.h>
#include <InterfaceDefs.h>
#include <Rect.h>
#include <String.h>


TEST(RectTest, EdgesUnionAndIntersection_AreIncluded)
{
	const BRect rect(0, 0, 15, 15);
	EXPECT_FLOAT_EQ(15, rect.Width());
	EXPECT_TRUE(rect.Contains(BPoint(15, 15)));
	EXPECT_FALSE(rect.Contains(BPoint(16, 15)));
	EXPECT_FALSE(BRect().IsValid());
	EXPECT_TRUE(BRect(3, 3, 3, 3).IsValid());

	const BRect first(0, 0, 10, 10);
	const BRect second(5, 6, 20, 8);
	EXPECT_EQ(BRect(5, 6, 10, 8), first & second);
	EXPECT_EQ(BRect(0, 0, 20, 10), first | second);
	EXPECT_TRUE(first.Intersects(second));
	EXPECT_FALSE(first.Intersects(BRect(11, 0, 12, 1)));
}


TEST(SizeTest, Unset_IsKnown)
{
	const BSize size(B_SIZE_UNSET, 4);
	EXPECT_FALSE(size.IsWidthSet());
	EXPECT_TRUE(size.IsHeightSet());
}


TEST(ColorTest, TintsAndSystemColors_AreHaikus)
{
	const rgb_color color = make_color(100, 150, 200);
	EXPECT_EQ(make_color(255, 255, 255), tint_color(color, B_LIGHTEN_MAX_TINT));
	EXPECT_EQ(color, tint_color(color, B_NO_TINT));
	EXPECT_EQ(make_color(0, 0, 0), tint_color(color, B_DARKEN_MAX_TINT));
	EXPECT_EQ(make_color(70, 105, 141), tint_color(color, B_DARKEN_2_TINT));
	EXPECT_EQ(7, tint_color(make_color(1, 2, 3, 7), B_DARKEN_1_TINT).alpha);

	EXPECT_EQ(make_color(216, 216, 216), ui_color(B_PANEL_BACKGROUND_COLOR));
	EXPECT_EQ(make_color(255, 255, 255), ui_color(B_LIST_BACKGROUND_COLOR));
	EXPECT_EQ(make_color(190, 190, 190), ui_color(B_LIST_SELECTED_BACKGROUND_COLOR));
	EXPECT_EQ(make_color(0, 0, 0), ui_color(B_LIST_ITEM_TEXT_COLOR));
	EXPECT_EQ(make_color(0, 0, 0), ui_color(B_DOCUMENT_TEXT_COLOR));
}


TEST(FontTest, Metrics_FollowTheFontAndTheText)
{
	EXPECT_GT(be_bold_font->StringWidth("Users Online"),
		be_plain_font->StringWidth("Users Online"));
	BFont large(be_plain_font);
	large.SetSize(be_plain_font->Size() * 2);
	EXPECT_GT(large.StringWidth("a"), be_plain_font->StringWidth("a"));
	EXPECT_FLOAT_EQ(0, be_plain_font->StringWidth(NULL));
	EXPECT_EQ(*be_plain_font, BFont());
	EXPECT_FALSE(*be_plain_font == large);

	EXPECT_GT(be_plain_font->StringWidth("a\xff"), be_plain_font->StringWidth("a"));
	EXPECT_FLOAT_EQ(be_plain_font->StringWidth("\xef\xbf\xbd\xef\xbf\xbd"),
		be_plain_font->StringWidth("\xe2\x82"));

	font_height height;
	be_plain_font->GetHeight(&height);
	EXPECT_FLOAT_EQ(std::floor(height.ascent), height.ascent);
	EXPECT_FLOAT_EQ(std::floor(height.descent), height.descent);
	EXPECT_GE(height.ascent + height.descent, be_plain_font->Size());
	EXPECT_GE(height.leading, 0);
}


/*!	What people on a server write. A machine without fonts, as a container is by default, measures
	nothing; one that lacks a script draws the same box for every character of it, so that a narrow
	and a wide one are of one width.
*/
TEST(FontTest, ScriptsOfTheWorld_HaveAWidth)
{
	static const struct {
		const char* script;
		const char* narrow;
		const char* wide;
	} kProbes[] = {
		{"Latin", "i", "W"},
		{"Cyrillic", "\xd1\x96", "\xd0\xa9"},
		{"Greek", "\xce\xb9", "\xce\xa9"},
		{"Hebrew", "\xd7\x99", "\xd7\xa9"},
		{"Arabic", "\xd8\xa7", "\xd8\xb5"},
		{"Japanese", "\xef\xbd\xb6", "\xe6\x9c\x88"},
	};
	for (const auto& probe : kProbes) {
		SCOPED_TRACE(probe.script);
		EXPECT_GT(be_plain_font->StringWidth(probe.narrow), 0);
		EXPECT_GT(be_plain_font->StringWidth(probe.wide), be_plain_font->StringWidth(probe.narrow));
	}
}


TEST(FontTest, TruncatedString_FitsAndSaysSo)
{
	const BString whole("A description that is much too long");
	BString cut(whole);
	be_plain_font->TruncateString(&cut, B_TRUNCATE_END, 100);
	EXPECT_LE(be_plain_font->StringWidth(cut.String()), 100);
	const std::string end = cut.String();
	EXPECT_EQ("A desc", end.substr(0, 6));
	EXPECT_EQ("…", end.substr(end.size() - 3));

	cut = whole;
	be_plain_font->TruncateString(&cut, B_TRUNCATE_BEGINNING, 100);
	const std::string beginning = cut.String();
	EXPECT_EQ("too long", beginning.substr(beginning.size() - 8));

	BString fitting("\xff short");
	be_plain_font->TruncateString(&fitting, B_TRUNCATE_END, 1000);
	EXPECT_STREQ("\xff short", fitting.String());
}


TEST(BitmapTest, NewBitmap_IsAllZero_AndOfGoodBoundsOnly)
{
	const BBitmap bitmap(BRect(0, 0, 2, 1), B_RGBA32);
	ASSERT_TRUE(bitmap.IsValid());
	EXPECT_EQ(BRect(0, 0, 2, 1), bitmap.Bounds());
	EXPECT_EQ(12, bitmap.BytesPerRow());
	EXPECT_EQ(24, bitmap.BitsLength());
	EXPECT_EQ(B_RGBA32, bitmap.ColorSpace());
	const uint8* bits = static_cast<const uint8*>(bitmap.Bits());
	for (int32 i = 0; i < bitmap.BitsLength(); i++)
		EXPECT_EQ(0, bits[i]);

	EXPECT_FALSE(BBitmap(BRect(), B_RGBA32).IsValid());
	EXPECT_FALSE(BBitmap(BRect(0, 0, 3, 3), B_NO_COLOR_SPACE).IsValid());
	EXPECT_TRUE(BBitmap(BRect(0, 0, 3, 3), B_RGB32).IsValid());
}
