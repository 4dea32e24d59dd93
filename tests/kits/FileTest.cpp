/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <File.h>

#include <Directory.h>
#include <Entry.h>
#include <gtest/gtest.h>

#include "TemporaryFolder.h"


TEST(FileTest, Create_WriteAndReadBack)
{
	TemporaryFolder folder;
	BFile file(folder.PathOf("file").c_str(), B_READ_WRITE | B_CREATE_FILE);
	ASSERT_EQ(B_OK, file.InitCheck());
	EXPECT_EQ(6, file.Write("abcdef", 6));
	EXPECT_EQ(6, file.Position());
	EXPECT_EQ(2, file.Seek(2, SEEK_SET));
	char buffer[8] = "";
	EXPECT_EQ(3, file.Read(buffer, 3));
	EXPECT_STREQ("cde", buffer);
	EXPECT_EQ(2, file.ReadAt(0, buffer, 2));
	EXPECT_STREQ("abe", buffer);
	EXPECT_EQ(5, file.Position());
	EXPECT_EQ(2, file.WriteAt(4, "XY", 2));
	EXPECT_EQ(1, file.Read(buffer, 8));
	EXPECT_EQ('Y', buffer[0]);
	EXPECT_EQ(0, file.Read(buffer, 8));
	EXPECT_EQ(B_OK, file.Sync());
}


TEST(FileTest, Modes_AreKept)
{
	TemporaryFolder folder;
	folder.AddFile("file", "12345");
	std::string path = folder.PathOf("file");
	BFile reader(path.c_str(), B_READ_ONLY);
	EXPECT_TRUE(reader.IsReadable());
	EXPECT_FALSE(reader.IsWritable());
	EXPECT_LT(reader.Write("x", 1), 0);

	BFile writer(path.c_str(), B_WRITE_ONLY | B_OPEN_AT_END);
	char byte;
	EXPECT_LT(writer.Read(&byte, 1), 0);
	EXPECT_EQ(1, writer.Write("6", 1));
	off_t size = 0;
	EXPECT_EQ(B_OK, writer.GetSize(&size));
	EXPECT_EQ(6, size);

	BFile eraser(path.c_str(), B_READ_WRITE | B_ERASE_FILE);
	EXPECT_EQ(B_OK, eraser.GetSize(&size));
	EXPECT_EQ(0, size);
	EXPECT_EQ(B_FILE_EXISTS,
		BFile(path.c_str(), B_READ_WRITE | B_CREATE_FILE | B_FAIL_IF_EXISTS).InitCheck());
}


TEST(FileTest, FileThatIsNotThere_IsNotFound)
{
	TemporaryFolder folder;
	BFile file(folder.PathOf("none").c_str(), B_READ_ONLY);
	EXPECT_EQ(B_ENTRY_NOT_FOUND, file.InitCheck());
	char byte;
	off_t size = 7;
	EXPECT_EQ(B_NO_INIT, file.Read(&byte, 1));
	EXPECT_EQ(B_NO_INIT, file.Write(&byte, 1));
	EXPECT_EQ(B_NO_INIT, file.GetSize(&size));
	EXPECT_EQ(B_NO_INIT, file.Seek(0, SEEK_SET));
	EXPECT_EQ(7, size);
}


TEST(FileTest, Folder_IsNoFile)
{
	TemporaryFolder folder;
	EXPECT_EQ(B_IS_A_DIRECTORY, BFile(folder.Path().c_str(), B_READ_ONLY).InitCheck());
	EXPECT_EQ(B_IS_A_DIRECTORY, BFile(folder.Path().c_str(), B_READ_WRITE).InitCheck());
}


TEST(FileTest, Sources_OpenTheSameFile)
{
	TemporaryFolder folder;
	folder.AddFile("file", "12345");
	BDirectory directory(folder.Path().c_str());
	BEntry entry(&directory, "file");
	entry_ref ref;
	entry.GetRef(&ref);
	EXPECT_EQ(B_OK, BFile(&directory, "file", B_READ_ONLY).InitCheck());
	EXPECT_EQ(B_OK, BFile(&entry, B_READ_ONLY).InitCheck());
	EXPECT_EQ(B_OK, BFile(&ref, B_READ_ONLY).InitCheck());
	EXPECT_EQ(B_BAD_VALUE, BFile(static_cast<const char*>(NULL), B_READ_ONLY).InitCheck());
}


TEST(FileTest, SetSize_CutsAndFills)
{
	TemporaryFolder folder;
	folder.AddFile("file", "12345");
	BFile file(folder.PathOf("file").c_str(), B_READ_WRITE);
	EXPECT_EQ(B_OK, file.SetSize(2));
	EXPECT_EQ(B_OK, file.SetSize(4));
	char buffer[8];
	EXPECT_EQ(4, file.Read(buffer, 8));
	EXPECT_EQ(0, memcmp(buffer, "12\0\0", 4));
	EXPECT_EQ(B_BAD_VALUE, file.SetSize(-1));
}


TEST(FileTest, SizesBeyondFourGigabytes_AreWhole)
{
	TemporaryFolder folder;
	BFile file(folder.PathOf("large").c_str(), B_READ_WRITE | B_CREATE_FILE);
	const off_t kLarge = off_t(5) << 30;
	ASSERT_EQ(B_OK, file.SetSize(kLarge));
	off_t size = 0;
	EXPECT_EQ(B_OK, file.GetSize(&size));
	EXPECT_EQ(kLarge, size);
	EXPECT_EQ(kLarge, file.Seek(0, SEEK_END));
}


TEST(FileTest, Unset_ClosesTheFile)
{
	TemporaryFolder folder;
	folder.AddFile("file", "12345");
	BFile file(folder.PathOf("file").c_str(), B_READ_ONLY);
	file.Unset();
	EXPECT_EQ(B_NO_INIT, file.InitCheck());
	EXPECT_FALSE(file.IsReadable());
}
