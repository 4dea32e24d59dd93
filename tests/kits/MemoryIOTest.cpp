/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <DataIO.h>

#include <cstdio>

#include <gtest/gtest.h>


TEST(MemoryIOTest, Read_MovesThePosition)
{
	BMemoryIO io("abcdef", 6);
	char buffer[4] = "";
	EXPECT_EQ(3, io.Read(buffer, 3));
	EXPECT_STREQ("abc", buffer);
	EXPECT_EQ(3, io.Position());
	EXPECT_EQ(3, io.Read(buffer, 100));
	EXPECT_STREQ("def", buffer);
	EXPECT_EQ(0, io.Read(buffer, 1));
}


TEST(MemoryIOTest, ReadAt_LeavesThePosition)
{
	BMemoryIO io("abcdef", 6);
	char byte = 0;
	EXPECT_EQ(1, io.ReadAt(5, &byte, 1));
	EXPECT_EQ('f', byte);
	EXPECT_EQ(0, io.ReadAt(6, &byte, 1));
	EXPECT_EQ(B_BAD_VALUE, io.ReadAt(-1, &byte, 1));
	EXPECT_EQ(0, io.Position());
}


TEST(MemoryIOTest, ConstMemory_IsNotWritten)
{
	BMemoryIO io(static_cast<const void*>("abc"), 3);
	EXPECT_EQ(B_NOT_ALLOWED, io.Write("x", 1));
	EXPECT_EQ(B_NOT_ALLOWED, io.SetSize(1));
}


TEST(MemoryIOTest, Write_StopsAtTheEndOfTheMemory)
{
	char memory[5] = "1234";
	BMemoryIO io(memory, 4);
	EXPECT_EQ(2, io.Seek(2, SEEK_SET));
	EXPECT_EQ(2, io.Write("abcdef", 6));
	EXPECT_STREQ("12ab", memory);
	EXPECT_EQ(0, io.Write("x", 1));
}


TEST(MemoryIOTest, Seek_KnowsThreeWays)
{
	BMemoryIO io("abcdef", 6);
	EXPECT_EQ(4, io.Seek(-2, SEEK_END));
	EXPECT_EQ(5, io.Seek(1, SEEK_CUR));
	EXPECT_EQ(B_BAD_VALUE, io.Seek(-1, SEEK_SET));
	EXPECT_EQ(B_BAD_VALUE, io.Seek(INT64_MAX, SEEK_CUR));
	EXPECT_EQ(5, io.Position());
}


TEST(MemoryIOTest, GetSize_FollowsSetSize)
{
	char memory[8] = "";
	BMemoryIO io(memory, 8);
	off_t size = 0;
	EXPECT_EQ(B_OK, io.GetSize(&size));
	EXPECT_EQ(8, size);
	EXPECT_EQ(B_OK, io.SetSize(3));
	EXPECT_EQ(B_OK, io.GetSize(&size));
	EXPECT_EQ(3, size);
	EXPECT_NE(B_OK, io.SetSize(9));
}


TEST(MemoryIOTest, ReadExactly_TellsAShortRead)
{
	BMemoryIO io("abc", 3);
	char buffer[8];
	size_t count = 0;
	EXPECT_EQ(B_OK, io.ReadExactly(buffer, 2));
	EXPECT_EQ(B_PARTIAL_READ, io.ReadExactly(buffer, 2, &count));
	EXPECT_EQ(1u, count);
}
