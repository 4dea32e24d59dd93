/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <List.h>

#include <gtest/gtest.h>


namespace {


int sItems[4];


int
compare_addresses(const void* a, const void* b)
{
	const int* first = *static_cast<int* const*>(a);
	const int* second = *static_cast<int* const*>(b);
	return int(first - second);
}


class ListTest : public ::testing::Test {
protected:
	ListTest()
	{
		for (int i = 0; i < 3; i++)
			fList.AddItem(&sItems[i]);
	}

	BList fList;
};


} // namespace


TEST_F(ListTest, AddItem_AppendsOrInserts)
{
	EXPECT_TRUE(fList.AddItem(&sItems[3], 1));
	ASSERT_EQ(4, fList.CountItems());
	EXPECT_EQ(&sItems[0], fList.ItemAt(0));
	EXPECT_EQ(&sItems[3], fList.ItemAt(1));
	EXPECT_EQ(&sItems[2], fList.LastItem());
	EXPECT_FALSE(fList.AddItem(&sItems[3], 5));
	EXPECT_FALSE(fList.AddItem(&sItems[3], -1));
}


TEST_F(ListTest, ItemAt_OutsideOfTheList_IsNull)
{
	EXPECT_EQ(NULL, fList.ItemAt(3));
	EXPECT_EQ(NULL, fList.ItemAt(-1));
	BList empty(5);
	EXPECT_EQ(NULL, empty.FirstItem());
	EXPECT_EQ(NULL, empty.LastItem());
	EXPECT_TRUE(empty.IsEmpty());
}


TEST_F(ListTest, RemoveItem_ByIndex_AnswersTheItem)
{
	EXPECT_EQ(&sItems[1], fList.RemoveItem(int32(1)));
	EXPECT_EQ(2, fList.CountItems());
	EXPECT_EQ(NULL, fList.RemoveItem(int32(2)));
}


TEST_F(ListTest, RemoveItem_ByPointer_TakesTheFirst)
{
	fList.AddItem(&sItems[0]);
	EXPECT_TRUE(fList.RemoveItem(&sItems[0]));
	EXPECT_EQ(2, fList.IndexOf(&sItems[0]));
	EXPECT_FALSE(fList.RemoveItem(&sItems[3]));
}


TEST_F(ListTest, RemoveItems_StopsAtTheEnd)
{
	EXPECT_TRUE(fList.RemoveItems(1, 10));
	EXPECT_EQ(1, fList.CountItems());
	EXPECT_FALSE(fList.RemoveItems(5, 1));
}


TEST_F(ListTest, IndexOf_FindsWhatIsThere)
{
	EXPECT_EQ(2, fList.IndexOf(&sItems[2]));
	EXPECT_TRUE(fList.HasItem(&sItems[2]));
	EXPECT_EQ(-1, fList.IndexOf(&sItems[3]));
	EXPECT_FALSE(fList.HasItem(&sItems[3]));
}


TEST_F(ListTest, SortAndSwap_ReorderItems)
{
	EXPECT_TRUE(fList.SwapItems(0, 2));
	EXPECT_EQ(&sItems[2], fList.FirstItem());
	EXPECT_FALSE(fList.SwapItems(0, 3));
	fList.SortItems(compare_addresses);
	EXPECT_EQ(&sItems[0], fList.FirstItem());
	EXPECT_EQ(&sItems[2], fList.LastItem());
}


TEST_F(ListTest, AddList_TakesItselfToo)
{
	EXPECT_TRUE(fList.AddList(&fList));
	EXPECT_EQ(6, fList.CountItems());
	EXPECT_EQ(&sItems[0], fList.ItemAt(3));
}


TEST_F(ListTest, Copy_IsIndependent)
{
	BList copy(fList);
	fList.MakeEmpty();
	EXPECT_EQ(3, copy.CountItems());
	EXPECT_EQ(0, fList.CountItems());
}
