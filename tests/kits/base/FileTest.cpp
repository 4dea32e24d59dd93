/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <File.h>

#include <filesystem>

#include <gtest/gtest.h>

#include "TemporaryFolder.h"


class FileTest : public testing::Test {
protected:
	TemporaryFolder fFolder;
};


TEST_F(FileTest, BytesWritten_AreReadBackInOrder)
{
	const std::string path = fFolder.PathOf("file");
	{
		BFile file(path.c_str(), B_READ_WRITE | B_CREATE_FILE);
		ASSERT_EQ(B_OK, file.InitCheck());
		EXPECT_EQ(4, file.Write("abcd", 4));
		EXPECT_EQ(2, file.Write("ef", 2));
	}

	BFile file(path.c_str(), B_READ_ONLY);
	char buffer[8] = "";
	EXPECT_EQ(3, file.Read(buffer, 3));
	EXPECT_STREQ("abc", buffer);
	EXPECT_EQ(3, file.Read(buffer, 8));
	EXPECT_STREQ("def", buffer);
	EXPECT_EQ(0, file.Read(buffer, 8));
}


TEST_F(FileTest, Modes_AreKept)
{
	fFolder.AddFile("file", "12345");
	std::string path = fFolder.PathOf("file");
	BFile reader(path.c_str(), B_READ_ONLY);
	EXPECT_LT(reader.Write("x", 1), 0);

	BFile writer(path.c_str(), B_WRITE_ONLY);
	char byte;
	EXPECT_LT(writer.Read(&byte, 1), 0);
	EXPECT_EQ(1, writer.Write("6", 1));
	off_t size = 0;
	EXPECT_EQ(B_OK, writer.GetSize(&size));
	EXPECT_EQ(5, size);

	BFile eraser(path.c_str(), B_WRITE_ONLY | B_CREATE_FILE | B_ERASE_FILE);
	EXPECT_EQ(B_OK, eraser.GetSize(&size));
	EXPECT_EQ(0, size);
}


TEST_F(FileTest, WhatIsNoFile_IsAnError)
{
	EXPECT_EQ(B_IS_A_DIRECTORY, BFile(fFolder.Path().c_str(), B_READ_ONLY).InitCheck());
	EXPECT_EQ(B_IS_A_DIRECTORY, BFile(fFolder.Path().c_str(), B_READ_WRITE).InitCheck());
	EXPECT_EQ(B_BAD_VALUE, BFile(static_cast<const char*>(NULL), B_READ_ONLY).InitCheck());

	BFile file(fFolder.PathOf("none").c_str(), B_READ_ONLY);
	EXPECT_EQ(B_ENTRY_NOT_FOUND, file.InitCheck());
	char byte;
	off_t size = 7;
	EXPECT_EQ(B_NO_INIT, file.Read(&byte, 1));
	EXPECT_EQ(B_NO_INIT, file.Write(&byte, 1));
	EXPECT_EQ(B_NO_INIT, file.GetSize(&size));
	EXPECT_EQ(7, size);
}


TEST_F(FileTest, SizesBeyondFourGigabytes_AreWhole)
{
	fFolder.AddFile("large", "");
	const off_t kLarge = static_cast<off_t>(5) << 30;
	std::filesystem::resize_file(fFolder.PathOf("large"), static_cast<std::uintmax_t>(kLarge));
	BFile file(fFolder.PathOf("large").c_str(), B_READ_ONLY);
	off_t size = 0;
	EXPECT_EQ(B_OK, file.GetSize(&size));
	EXPECT_EQ(kLarge, size);
}
