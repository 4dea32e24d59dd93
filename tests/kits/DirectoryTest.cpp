/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Directory.h>

#include <set>

#include <Entry.h>
#include <File.h>
#include <gtest/gtest.h>
#include <Path.h>

#include "TemporaryFolder.h"


TEST(DirectoryTest, Entries_AreAllListedOnce)
{
	TemporaryFolder folder;
	folder.AddFile("a", "");
	folder.AddFile("\xff bytes", "");
	folder.AddFolder("sub");
	folder.AddLink("dangling", "nowhere");
	BDirectory directory(folder.Path().c_str());
	ASSERT_EQ(B_OK, directory.InitCheck());
	EXPECT_EQ(4, directory.CountEntries());

	for (int pass = 0; pass < 2; pass++) {
		std::set<std::string> names;
		BEntry entry;
		while (directory.GetNextEntry(&entry) == B_OK)
			EXPECT_TRUE(names.insert(entry.Name()).second);
		EXPECT_EQ((std::set<std::string>{"a", "\xff bytes", "sub", "dangling"}), names);
		EXPECT_EQ(B_ENTRY_NOT_FOUND, directory.GetNextEntry(&entry));
		EXPECT_EQ(B_NO_INIT, entry.InitCheck());
		EXPECT_EQ(B_OK, directory.Rewind());
	}
}


TEST(DirectoryTest, EmptyFolder_HasNoEntries)
{
	TemporaryFolder folder;
	BDirectory directory(folder.Path().c_str());
	EXPECT_EQ(0, directory.CountEntries());
	entry_ref ref;
	EXPECT_EQ(B_ENTRY_NOT_FOUND, directory.GetNextRef(&ref));
}


TEST(DirectoryTest, NotAFolder_IsAnError)
{
	TemporaryFolder folder;
	folder.AddFile("file", "");
	EXPECT_EQ(B_NOT_A_DIRECTORY, BDirectory(folder.PathOf("file").c_str()).InitCheck());
	EXPECT_EQ(B_ENTRY_NOT_FOUND, BDirectory(folder.PathOf("none").c_str()).InitCheck());
	BDirectory unset;
	BEntry entry;
	EXPECT_EQ(B_NO_INIT, unset.GetNextEntry(&entry));
	EXPECT_EQ(B_NO_INIT, unset.CountEntries());
}


TEST(DirectoryTest, CreateDirectory_LeavesAnExistingOneAlone)
{
	TemporaryFolder folder;
	BDirectory directory(folder.Path().c_str());
	BDirectory created;
	EXPECT_EQ(B_OK, directory.CreateDirectory("Downloads", &created));
	EXPECT_EQ(folder.PathOf("Downloads"), BPath(&created).Path());
	folder.AddFile("Downloads/file", "x");
	EXPECT_EQ(B_FILE_EXISTS, directory.CreateDirectory("Downloads", NULL));
	EXPECT_EQ(1, created.CountEntries());
	EXPECT_EQ(B_ENTRY_NOT_FOUND, directory.CreateDirectory("none/sub", NULL));

	// Without a directory, from an absolute path.
	EXPECT_EQ(B_OK, BDirectory().CreateDirectory(folder.PathOf("other").c_str(), NULL));
	EXPECT_TRUE(directory.Contains("other", B_DIRECTORY_NODE));
}


TEST(DirectoryTest, CreateFile_MayInsistOnANewOne)
{
	TemporaryFolder folder;
	BDirectory directory(folder.Path().c_str());
	BFile file;
	EXPECT_EQ(B_OK, directory.CreateFile("file", &file));
	EXPECT_EQ(3, file.Write("abc", 3));
	EXPECT_EQ(B_FILE_EXISTS, directory.CreateFile("file", NULL, true));
	EXPECT_EQ(B_OK, directory.CreateFile("file", NULL));
	off_t size = 7;
	EXPECT_EQ(B_OK, file.GetSize(&size));
	EXPECT_EQ(0, size);
}


TEST(DirectoryTest, FindEntry_FindsWhatIsThere)
{
	TemporaryFolder folder;
	folder.AddFile("file", "");
	BDirectory directory(folder.Path().c_str());
	BEntry entry;
	EXPECT_EQ(B_OK, directory.FindEntry("file", &entry));
	EXPECT_STREQ("file", entry.Name());
	EXPECT_EQ(B_ENTRY_NOT_FOUND, directory.FindEntry("none", &entry));
	EXPECT_EQ(B_NO_INIT, entry.InitCheck());
	EXPECT_TRUE(directory.Contains("file", B_FILE_NODE));
	EXPECT_FALSE(directory.Contains("file", B_DIRECTORY_NODE));
	EXPECT_EQ(B_OK, directory.GetEntry(&entry));
	EXPECT_EQ(folder.Path(), BPath(&entry).Path());
}


TEST(DirectoryTest, SetTo_ItsOwnParts)
{
	TemporaryFolder folder;
	folder.AddFolder("sub");
	BDirectory directory(folder.Path().c_str());
	BDirectory sub(&directory, "sub");
	EXPECT_EQ(folder.PathOf("sub"), BPath(&sub).Path());
	BEntry entry;
	sub.GetEntry(&entry);
	EXPECT_EQ(B_OK, sub.SetTo(&sub, ".."));
	EXPECT_EQ(folder.Path(), BPath(&sub).Path());
	EXPECT_EQ(B_OK, sub.SetTo(&entry));
	EXPECT_EQ(folder.PathOf("sub"), BPath(&sub).Path());
}


TEST(DirectoryTest, create_directory_MakesThoseAboveIt)
{
	TemporaryFolder folder;
	std::string path = folder.PathOf("a/b/c");
	EXPECT_EQ(B_OK, create_directory(path.c_str(), 0777));
	EXPECT_EQ(B_OK, create_directory(path.c_str(), 0777));
	EXPECT_TRUE(BEntry(path.c_str()).IsDirectory());
	folder.AddFile("file", "");
	EXPECT_EQ(B_NOT_A_DIRECTORY, create_directory(folder.PathOf("file").c_str(), 0777));
}
