/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <string>

#include <gtest/gtest.h>

#include <Font.h>
#include <View.h>

#include "ExpectSoon.h"
#include "ListViewFixture.h"
#include "UserInput.h"
#include "WindowWithView.h"


/*!	A row that fills itself, and says more than its text. */
class ColorItem : public BStringItem {
public:
	ColorItem(const char* text, rgb_color color)
		: BStringItem(text),
		  fColor(color),
		  fDrawCount(0)
	{
	}

	void DrawItem(BView* owner, BRect frame, bool) override
	{
		fDrawCount++;
		owner->SetHighColor(fColor);
		owner->FillRect(frame);
		owner->SetFont(be_bold_font);
		owner->DrawString(Text(), frame.LeftBottom());
		owner->DrawString("12 users", frame.LeftBottom());
		owner->DrawString("<b>here</b>", frame.LeftBottom());
	}

	int32 CountDrawn() const { return fDrawCount; }

private:
	rgb_color fColor;
	int32 fDrawCount;
};


/*!	A row with room for the beginning of its text, and for something beside it. */
class CutItem : public BStringItem {
public:
	CutItem(const char* text, const char* aside)
		: BStringItem(text),
		  fAside(aside)
	{
	}

	void DrawItem(BView* owner, BRect frame, bool) override
	{
		BString text(Text());
		owner->TruncateString(&text, B_TRUNCATE_END, owner->StringWidth(Text()) * 2 / 3);
		owner->DrawString(text.String(), frame.LeftBottom());
		owner->DrawString(fAside.String(), frame.LeftBottom());
	}

private:
	BString fAside;
};


/*!	How rows look, and what a screen reader finds of them. */
class ListViewRowsTest : public ListViewFixture {};


TEST_F(ListViewRowsTest, Rows_DrawThemselves_AndLeaveTheListsFontAndColors)
{
	BFont before;
	fList->GetFont(&before);
	const rgb_color high = fList->HighColor();
	ColorItem* item = new ColorItem("red", make_color(200, 0, 0));
	fList->AddItem(Keep(item));
	fList->AddItem(Keep(new ColorItem("green", make_color(0, 128, 0))));
	ASSERT_SOON(item->CountDrawn() > 0);
	const BRect frame = fList->ItemFrame(0);
	EXPECT_EQ(pixel_of(fList, BPoint(frame.right - 2, frame.top)), 0xc80000u);
	EXPECT_EQ(pixel_of(fList, BPoint(frame.right - 2, frame.bottom)), 0xc80000u);
	EXPECT_EQ(pixel_of(fList, BPoint(frame.right - 2, frame.bottom + 1)), 0x008000u);
	BFont after;
	fList->GetFont(&after);
	EXPECT_TRUE(before == after);
	EXPECT_TRUE(fList->HighColor() == high);
}


TEST_F(ListViewRowsTest, MouseOverARow_ChangesNothing)
{
	ShowStrings(3);
	const std::string before = picture_of(fList);
	point_at(fList, BPoint(10, fList->ItemFrame(1).top + 2));
	EXPECT_TRUE(before == picture_of(fList));

	// Nor are rows told apart by stripes.
	const float right = fList->ItemFrame(0).right - 2;
	for (int32 i = 0; i < 3; i++) {
		EXPECT_EQ(pixel_of(fList, BPoint(right, fList->ItemFrame(0).top)),
			pixel_of(fList, BPoint(right, fList->ItemFrame(i).top)));
	}
}


TEST_F(ListViewRowsTest, InvalidatedItem_IsDrawnAgain_UnlessItIsRemoved)
{
	ColorItem* item = new ColorItem("old", make_color(200, 0, 0));
	fList->AddItem(Keep(item));
	ASSERT_SOON(item->CountDrawn() > 0);
	const int32 before = item->CountDrawn();
	item->SetText("new");
	fList->InvalidateItem(0);
	fList->InvalidateItem(12);
	EXPECT_SOON(item->CountDrawn() > before);
	EXPECT_EQ(accessible_of_row(fList, 0).name, "new");

	fList->RemoveItem(static_cast<int32>(0));
	ShowStrings(10);
	for (int32 i = 0; i < 10; i++)
		fList->InvalidateItem(i);
	for (int32 i = 9; i > 1; i--)
		fList->RemoveItem(i);
	fList->RemoveItem(static_cast<int32>(0));
	EXPECT_TRUE(WaitForRows(1));
	fList->InvalidateItem(0);
	fList->RemoveItem(static_cast<int32>(0));
	EXPECT_TRUE(WaitForRows(0));
}


TEST_F(ListViewRowsTest, RowsForScreenReaders_SayWhatIsDrawn)
{
	fList->AddItem(Keep(new ColorItem("&Name <i>[*]", make_color(255, 255, 255))));
	fList->AddItem(Keep(new NumberItem(137, 22)));
	fList->AddItem(Keep(new BStringItem("bytes \xff")));
	ASSERT_TRUE(WaitForRows(3));
	EXPECT_EQ(accessible_of_row(fList, 0).name, "&Name <i>[*]");
	EXPECT_EQ(accessible_of_row(fList, 0).description, "12 users, <b>here</b>");
	EXPECT_EQ(accessible_of_row(fList, 1).name, "137");
	EXPECT_EQ(accessible_of_row(fList, 1).description, "a number");
	EXPECT_EQ(accessible_of_row(fList, 2).name, "bytes \xef\xbf\xbd");
	EXPECT_EQ(accessible_of_row(fList, 2).description, "");
	const Accessible row = accessible_of_row(fList, 1);
	EXPECT_EQ(row.height, 22);
	EXPECT_GT(row.width, 100);
	EXPECT_EQ(row.top, accessible_of_row(fList, 0).top + accessible_of_row(fList, 0).height);
	fList->Select(1);
	EXPECT_TRUE(accessible_of_row(fList, 1).isSelected);
}


TEST_F(ListViewRowsTest, NameCutByItsRow_IsNotPartOfTheDescription)
{
	fList->AddItem(Keep(new CutItem("a\x01long name \xff that does not fit", "7 users")));
	ASSERT_TRUE(WaitForRows(1));
	EXPECT_EQ(accessible_of_row(fList, 0).name, "a\x01long name \xef\xbf\xbd that does not fit");
	EXPECT_EQ(accessible_of_row(fList, 0).description, "7 users");
}


TEST_F(ListViewRowsTest, Heights_AreThoseOfTheItemsOrTheirLines)
{
	fList->AddItem(Keep(new NumberItem(1, 22)));
	fList->AddItem(Keep(new NumberItem(2, 22)));
	EXPECT_EQ(fList->ItemFrame(1).top - fList->ItemFrame(0).top, 22);
	fList->AddItem(Keep(new NumberItem(3, 57)));
	fList->AddItem(Keep(new NumberItem(4, 22)));
	EXPECT_EQ(fList->ItemFrame(2).Height() + 1, 57);
	EXPECT_EQ(fList->ItemFrame(3).top - fList->ItemFrame(2).top, 57);
	EXPECT_EQ(fList->ItemFrame(1).top - fList->ItemFrame(0).top, 22);
	EXPECT_FALSE(fList->ItemFrame(9).IsValid());

	fList->AddItem(Keep(new BStringItem("text")));
	font_height height;
	fList->GetFontHeight(&height);
	EXPECT_GE(fItems.back()->Height(), height.ascent + height.descent);
	EXPECT_LT(fItems.back()->Height(), 2 * (height.ascent + height.descent));
}


TEST_F(ListViewRowsTest, HugeText_IsDrawnAndDescribed)
{
	fList->AddItem(Keep(new BStringItem(std::string(65535, 'x').c_str())));
	ASSERT_TRUE(WaitForRows(1));
	EXPECT_EQ(accessible_of_row(fList, 0).name.size(), 65535u);
	press_key(fList, kKeyDown);
	EXPECT_EQ(fList->CurrentSelection(), 0);
}
