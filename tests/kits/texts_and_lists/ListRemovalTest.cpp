/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ExpectSoon.h"
#include "ListViewFixture.h"
#include "ScreenReader.h"
#include "UserInput.h"

typedef std::vector<std::string> Strings;


/*!	Rows that go, in lists that a screen reader may have read. */
class ListRemovalTest : public ListViewFixture {
protected:
	void ReadAll()
	{
		for (int32 i = 0; i < fList->CountItems(); i++)
			static_cast<void>(accessible_of_row(fList, i));
	}
};


TEST_F(ListRemovalTest, MakeEmpty_GivesAllItemsBack_AndDeletesNone)
{
	ShowStrings(5);
	fList->AddItem(Keep(new BStringItem("not shown yet")));
	fList->MakeEmpty();
	EXPECT_EQ(fList->CountItems(), 0);
	EXPECT_EQ(fList->ItemAt(0), nullptr);
	EXPECT_EQ(accessible_of(fList).childCount, 0);
	EXPECT_EQ(fList->IndexOf(BPoint(10, 5)), -1);
	for (const std::unique_ptr<BListItem>& item : fItems)
		EXPECT_GT(strlen(dynamic_cast<BStringItem*>(item.get())->Text()), 0u);
	fList->MakeEmpty();
	EXPECT_EQ(fList->CountItems(), 0);
}


TEST_F(ListRemovalTest, MakeEmpty_DeselectsWithoutAReport)
{
	ShowStrings(5);
	fList->Select(2);
	EXPECT_SOON(fWindow->Count(kMsgSelected) == 1);
	fList->MakeEmpty();
	EXPECT_FALSE(fItems[2]->IsSelected());
	EXPECT_EQ(fList->CurrentSelection(), -1);
	// What is sent after it has come.
	ShowStrings(3);
	EXPECT_EQ(fList->CurrentSelection(), -1);
	fList->Select(0);
	EXPECT_SOON(fWindow->Count(kMsgSelected) == 2);
	EXPECT_EQ(fWindow->Last().GetInt32("index", -7), 0);
}


TEST_F(ListRemovalTest, MakeEmpty_LeavesAListToBeFilledAgain)
{
	ShowStrings(300);
	const float top = fList->ItemFrame(0).top;
	fList->Select(200);
	fList->ScrollToSelection();
	fList->InvalidateItem(299);
	fList->MakeEmpty();
	fList->AddItem(Keep(new NumberItem(1, 57)));
	fList->AddItem(Keep(new NumberItem(2, 57)));
	ASSERT_TRUE(WaitForRows(2));
	EXPECT_EQ(fList->ItemFrame(1).Height() + 1, 57);
	EXPECT_EQ(fList->ItemFrame(0).top, top);
	press_key(fList, kKeyDown);
	EXPECT_EQ(fList->CurrentSelection(), 0);
}


TEST_F(ListRemovalTest, RowsThatWereNeverShown_GoUnheard)
{
	ScreenReader reader(fList);
	AddStrings(5);
	fList->MakeEmpty();
	EXPECT_EQ(reader.Heard(), Strings());
	EXPECT_TRUE(WaitForRows(0));
}


TEST_F(ListRemovalTest, MakeEmptyOfWhatWasRead_IsHeardOnce)
{
	ShowStrings(300);
	ScreenReader reader(fList);
	ReadAll();
	reader.Heard();
	fList->MakeEmpty();
	EXPECT_EQ(reader.Heard(), Strings({"rows reset"}));
	fItems.clear();
	EXPECT_EQ(accessible_of(fList).childCount, 0);
}


TEST_F(ListRemovalTest, RowOfFew_IsHeardAsItGoes)
{
	ShowStrings(10);
	ScreenReader reader(fList);
	ReadAll();
	reader.Heard();
	const std::string name = accessible_of_row(fList, 4).name;
	fList->RemoveItem(int32(3));
	EXPECT_EQ(reader.Heard(), Strings({"rows removed 3..3"}));
	EXPECT_EQ(accessible_of_row(fList, 3).name, name);
}


TEST_F(ListRemovalTest, RowOfMany_MakesTheReaderAskAgain)
{
	ShowStrings(1500);
	ScreenReader reader(fList);
	ReadAll();
	reader.Heard();
	const std::string name = accessible_of_row(fList, 4).name;
	fList->RemoveItem(int32(3));
	EXPECT_EQ(reader.Heard(), Strings({"rows reset", "rows removed 3..3"}));
	EXPECT_EQ(accessible_of_row(fList, 3).name, name);
	EXPECT_EQ(accessible_of(fList).childCount, 1499);
}
