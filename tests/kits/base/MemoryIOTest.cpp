/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <DataIO.h>

#include <gtest/gtest.h>


TEST(MemoryIOTest, Read_GoesOnToTheEnd)
{
	BMemoryIO io("abcdef", 6);
	char buffer[4] = "";
	EXPECT_EQ(3, io.Read(buffer, 3));
	EXPECT_STREQ("abc", buffer);
	EXPECT_EQ(3, io.Read(buffer, 100));
	EXPECT_STREQ("def", buffer);
	EXPECT_EQ(0, io.Read(buffer, 1));
}


TEST(MemoryIOTest, ConstMemory_IsNotWritten)
{
	BMemoryIO io("abc", 3);
	EXPECT_EQ(B_NOT_ALLOWED, io.Write("x", 1));
}
