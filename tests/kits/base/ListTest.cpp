/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <List.h>

#include <gtest/gtest.h>


static int sItems[4];


class ListTest : public testing::Test {
protected:
	ListTest()
	{
		for (int i = 0; i < 3; i++)
			fList.AddItem(&sItems[i]);
	}

	BList fList;
};


TEST_F(ListTest, AddedItems_AreAtTheEnd_AndNoneOutside)
{
	EXPECT_TRUE(fList.AddItem(&sItems[3]));
	ASSERT_EQ(4, fList.CountItems());
	EXPECT_EQ(&sItems[0], fList.ItemAt(0));
	EXPECT_EQ(&sItems[3], fList.ItemAt(3));
	EXPECT_EQ(NULL, fList.ItemAt(4));
	EXPECT_EQ(NULL, fList.ItemAt(-1));
	fList.MakeEmpty();
	EXPECT_EQ(0, fList.CountItems());
	EXPECT_EQ(0, BList(5).CountItems());
}


TEST_F(ListTest, RemoveItem_AnswersTheOneAtTheIndex_OrTakesTheFirstOfSuch)
{
	EXPECT_EQ(&sItems[1], fList.RemoveItem(static_cast<int32>(1)));
	EXPECT_EQ(2, fList.CountItems());
	EXPECT_EQ(NULL, fList.RemoveItem(static_cast<int32>(2)));

	fList.AddItem(&sItems[0]);
	EXPECT_TRUE(fList.RemoveItem(&sItems[0]));
	EXPECT_EQ(&sItems[2], fList.ItemAt(0));
	EXPECT_EQ(&sItems[0], fList.ItemAt(1));
	EXPECT_FALSE(fList.RemoveItem(&sItems[3]));
}
