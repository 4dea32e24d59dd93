/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ListView.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Button.h>
#include <InterfaceDefs.h>
#include <ScrollView.h>

#include "ExpectSoon.h"
#include "ListViewFixture.h"
#include "UserInput.h"
#include "WindowWithView.h"


static int
compare_numbers(const void* a, const void* b)
{
	const int32 first = (*static_cast<NumberItem* const*>(a))->Number();
	const int32 second = (*static_cast<NumberItem* const*>(b))->Number();
	if (first == second)
		return 0;
	return first < second ? -1 : 1;
}


class ListViewTest : public ListViewFixture {};


TEST_F(ListViewTest, AddedItems_AreThereAtOnceInTheirOrder)
{
	AddStrings(3);
	EXPECT_EQ(fList->CountItems(), 3);
	EXPECT_EQ(fList->ItemAt(1), fItems[1].get());
	EXPECT_EQ(fList->ItemAt(3), nullptr);
	EXPECT_EQ(fList->ItemAt(-1), nullptr);
	EXPECT_FALSE(fList->AddItem(NULL));
	EXPECT_TRUE(WaitForRows(3));
	fList->RemoveItem(1);
	const BListItem** items = fList->Items();
	EXPECT_EQ(items[0], fItems[0].get());
	EXPECT_EQ(items[1], fItems[2].get());
}


TEST_F(ListViewTest, RemovedItems_AreGoneFromTheToolkitAtOnce)
{
	ShowStrings(5);
	AddStrings(2);
	EXPECT_EQ(fList->RemoveItem(static_cast<int32>(1)), fItems[1].get());
	fItems[1].reset();
	EXPECT_EQ(accessible_of(fList).childCount, 4);
	EXPECT_EQ(fList->RemoveItem(static_cast<int32>(5)), fItems[6].get());
	EXPECT_EQ(fList->RemoveItem(static_cast<int32>(77)), nullptr);
	EXPECT_EQ(fList->CountItems(), 5);
	EXPECT_TRUE(WaitForRows(5));
	EXPECT_EQ(accessible_of_row(fList, 1).name, "row 2");
}


TEST_F(ListViewTest, ManyItemsRemovedOneByOne_LeaveNothing)
{
	ShowStrings(20000);
	for (int32 i = fList->CountItems() - 1; i >= 0; i--) {
		ASSERT_EQ(fList->RemoveItem(i), fItems[static_cast<size_t>(i)].get());
		fItems[static_cast<size_t>(i)].reset();
	}
	EXPECT_EQ(accessible_of(fList).childCount, 0);
}


TEST_F(ListViewTest, Select_MarksTheItemAndSendsTheMessage)
{
	AddStrings(3);
	fList->Select(2);
	EXPECT_EQ(fList->CurrentSelection(), 2);
	EXPECT_EQ(fList->CurrentSelection(1), -1);
	EXPECT_TRUE(fItems[2]->IsSelected());
	ASSERT_SOON(fWindow->Count(kMsgSelected) == 1);
	EXPECT_EQ(fWindow->Last().GetInt32("index", -1), 2);
	EXPECT_EQ(fWindow->Last().GetPointer("source"), static_cast<BView*>(fList));

	fList->Select(0, true);
	EXPECT_EQ(fList->CurrentSelection(), 0);
	EXPECT_FALSE(fItems[2]->IsSelected());
	fList->DeselectAll();
	EXPECT_EQ(fList->CurrentSelection(), -1);
	EXPECT_SOON(fWindow->Count(kMsgSelected) == 3);
}


TEST_F(ListViewTest, RemovingTheSelectedRow_SelectsNoOther)
{
	ShowStrings(3);
	click(fList, CenterOf(1));
	ASSERT_EQ(fList->CurrentSelection(), 1);
	EXPECT_EQ(fList->RemoveItem(static_cast<int32>(1)), fItems[1].get());
	EXPECT_EQ(fList->CurrentSelection(), -1);
	for (const auto& item : fItems)
		EXPECT_FALSE(item->IsSelected());
	ASSERT_SOON(fWindow->Count(kMsgSelected) == 2);
	EXPECT_EQ(fWindow->Last().GetInt32("index", 5), -1);

	// And that of another row leaves it.
	fList->Select(1);
	fList->RemoveItem(static_cast<int32>(0));
	EXPECT_EQ(fList->CurrentSelection(), 0);
	EXPECT_TRUE(fItems[2]->IsSelected());
}


TEST_F(ListViewTest, Click_Selects_AndOnlyADoubleClickInvokes)
{
	ShowStrings(3);
	click(fList, CenterOf(1));
	EXPECT_EQ(fList->CurrentSelection(), 1);
	EXPECT_SOON(fWindow->Count(kMsgSelected) == 1);
	EXPECT_EQ(fWindow->Count(kMsgInvoked), 0);

	double_click(fList, CenterOf(2));
	ASSERT_SOON(fWindow->Count(kMsgInvoked) == 1);
	EXPECT_EQ(fWindow->Last().GetInt32("index", -1), 2);
	EXPECT_EQ(fWindow->Last().GetPointer("source"), static_cast<BView*>(fList));
	EXPECT_NE(fWindow->Last().GetInt64("when", 0), 0);
	EXPECT_TRUE(fWindow->Last().HasData("be:sender", B_MESSENGER_TYPE));
}


TEST_F(ListViewTest, DoubleClickBelowTheRows_InvokesNothing)
{
	ShowStrings(1);
	fList->Select(0);
	const BRect frame = fList->ItemFrame(0);
	double_click(fList, BPoint(frame.left + 20, frame.bottom + 40));
	EXPECT_EQ(fList->CurrentSelection(), -1);
	fList->Select(0);
	press_key(fList, kKeyReturn);
	ASSERT_SOON(fWindow->Count(kMsgInvoked) > 0);
	EXPECT_EQ(fWindow->Count(kMsgInvoked), 1);
}


TEST_F(ListViewTest, FirstKeyAfterGettingTheFocus_SelectsTheRowAtThatEnd)
{
	press_key(fList, kKeyEnd);
	EXPECT_EQ(fList->CurrentSelection(), -1);
	ShowStrings(3);
	fList->MakeFocus(true);
	ASSERT_SOON(fList->IsFocus());
	press_key(fList, kKeyEnd);
	EXPECT_EQ(fList->CurrentSelection(), 2);
	press_key(fList, kKeyHome);
	EXPECT_EQ(fList->CurrentSelection(), 0);

	fList->DeselectAll();
	for (const int32 row : {0, 1}) {
		press_key(fList, kKeyDown);
		EXPECT_EQ(fList->CurrentSelection(), row);
	}
}


TEST_F(ListViewTest, Return_InvokesTheSelectedRow)
{
	AddStrings(3);
	press_key(fList, kKeyReturn);
	fList->Select(1);
	press_key(fList, kKeyDown);
	press_key(fList, kKeyReturn);
	ASSERT_SOON(fWindow->Count(kMsgInvoked) > 0);
	EXPECT_EQ(fWindow->Count(kMsgInvoked), 1);
	EXPECT_EQ(fWindow->Last().GetInt32("index", -1), 2);
}


TEST_F(ListViewTest, Space_InvokesAsReturnDoes_AlsoWithADefaultButton)
{
	BButton* button = new BButton("button", "Button", new BMessage('butn'));
	fWindow->Add(button);
	button->MakeDefault(true);
	ShowStrings(3);
	fList->MakeFocus(true);
	press_window_key(fWindow, B_SPACE);
	fList->Select(1);
	press_window_key(fWindow, B_SPACE);
	ASSERT_SOON(fWindow->Count(kMsgInvoked) > 0);
	EXPECT_EQ(fWindow->Count(kMsgInvoked), 1);
	EXPECT_EQ(fWindow->Last().GetInt32("index", -1), 1);
	EXPECT_EQ(fList->CurrentSelection(), 1);
	EXPECT_EQ(fWindow->Count('butn'), 0);
}


TEST_F(ListViewTest, PageKeys_ScrollAndLeaveTheSelection)
{
	ShowStrings(100);
	fList->MakeFocus(true);
	fList->Select(1);
	ASSERT_SOON(fWindow->Count(kMsgSelected) == 1);
	press_window_key(fWindow, B_PAGE_DOWN);
	EXPECT_EQ(scroll_state(fList).value, scroll_state(fList).page);
	EXPECT_EQ(fList->CurrentSelection(), 1);
	press_window_key(fWindow, B_PAGE_UP);
	EXPECT_EQ(scroll_state(fList).value, 0);
	EXPECT_EQ(fList->CurrentSelection(), 1);

	fList->DeselectAll();
	press_window_key(fWindow, B_PAGE_DOWN);
	EXPECT_EQ(fList->CurrentSelection(), -1);
	EXPECT_SOON(fWindow->Count(kMsgSelected) == 2);
}


TEST_F(ListViewTest, ArrowWithoutASelection_SelectsTheFirstRow)
{
	ShowStrings(5);
	fList->MakeFocus(true);
	for (const char arrow : {B_UP_ARROW, B_DOWN_ARROW}) {
		SCOPED_TRACE(static_cast<int>(arrow));
		fList->Select(3);
		fList->DeselectAll();
		press_window_key(fWindow, arrow);
		EXPECT_EQ(fList->CurrentSelection(), 0);
	}
}


TEST_F(ListViewTest, ReturnWithADefaultButton_IsTheButtons)
{
	BButton* button = new BButton("button", "Button", new BMessage('butn'));
	fWindow->Add(button);
	button->MakeDefault(true);
	AddStrings(2);
	fList->Select(1);
	press_key(fList, kKeyReturn);
	EXPECT_SOON(fWindow->Count('butn') == 1);
	EXPECT_EQ(fWindow->Count(kMsgInvoked), 0);
}


TEST_F(ListViewTest, InvokeByTheProgram_SendsWhateverIsSelected)
{
	EXPECT_EQ(fList->Invoke(), B_OK);
	ASSERT_SOON(fWindow->Count(kMsgInvoked) == 1);
	EXPECT_EQ(fWindow->Last().GetInt32("index", 5), -1);
	BMessage other('othr');
	EXPECT_EQ(fList->Invoke(&other), B_OK);
	EXPECT_SOON(fWindow->Count('othr') == 1);
}


TEST_F(ListViewTest, SortItems_OrdersAndDeselects)
{
	for (const int32 number : {30, 10, 20})
		fList->AddItem(Keep(new NumberItem(number, 22)));
	fList->Select(0);
	ASSERT_SOON(fWindow->Count(kMsgSelected) == 1);
	fList->SortItems(compare_numbers);
	EXPECT_EQ(fList->ItemAt(0), fItems[1].get());
	EXPECT_EQ(fList->ItemAt(2), fItems[0].get());
	EXPECT_EQ(fList->CurrentSelection(), -1);
	EXPECT_FALSE(fItems[0]->IsSelected());
	ASSERT_SOON(fWindow->Count(kMsgSelected) == 2);
	EXPECT_EQ(fWindow->Last().GetInt32("index", 5), -1);
	EXPECT_TRUE(WaitForRows(3));
	EXPECT_EQ(accessible_of_row(fList, 1).name, "20");
}


TEST_F(ListViewTest, ScrollToSelection_MakesItVisible)
{
	AddStrings(500);
	fList->Select(400);
	fList->ScrollToSelection();
	EXPECT_TRUE(fList->Bounds().Contains(CenterOf(400)));
	EXPECT_FALSE(fList->Bounds().Contains(CenterOf(0)));
}


TEST_F(ListViewTest, MultipleSelection_ExtendsAndReportsAll)
{
	BListView* list = new BListView("many", B_MULTIPLE_SELECTION_LIST);
	list->SetSelectionMessage(new BMessage(kMsgSelected));
	fWindow->Add(list);
	for (int32 i = 0; i < 4; i++)
		list->AddItem(Keep(new NumberItem(i, 20)));
	list->Select(3);
	list->Select(1, true);
	EXPECT_EQ(list->CurrentSelection(0), 1);
	EXPECT_EQ(list->CurrentSelection(1), 3);
	ASSERT_SOON(fWindow->Count(kMsgSelected) == 2);
	EXPECT_TRUE(fWindow->Last().HasData("index", B_INT32_TYPE, 1));
	list->DeselectAll();
	EXPECT_EQ(list->CurrentSelection(), -1);
}


TEST_F(ListViewTest, Focus_IsSeenByTheBorder)
{
	ExpectFocusByBorder(fWindow, fList);
}
