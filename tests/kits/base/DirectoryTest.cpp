/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Directory.h>

#include <set>

#include <Entry.h>
#include <gtest/gtest.h>
#include <Path.h>

#include "TemporaryFolder.h"


/*!	The names of the entries that are still to come. */
static std::multiset<std::string>
remaining_names(BDirectory& directory)
{
	std::multiset<std::string> names;
	BEntry entry;
	BPath path;
	while (directory.GetNextEntry(&entry) == B_OK && entry.GetPath(&path) == B_OK)
		names.insert(path.Leaf());
	return names;
}


class DirectoryTest : public testing::Test {
protected:
	TemporaryFolder fFolder;
};


TEST_F(DirectoryTest, Entries_AreAllListedOnce)
{
	fFolder.AddFile("a", "");
	fFolder.AddFile("\xff bytes", "");
	fFolder.AddFolder("sub");
	fFolder.AddLink("dangling", "nowhere");
	BDirectory directory(fFolder.Path().c_str());
	ASSERT_EQ(B_OK, directory.InitCheck());
	EXPECT_EQ((std::multiset<std::string>{"a", "\xff bytes", "sub", "dangling"}),
		remaining_names(directory));

	BEntry entry("/");
	EXPECT_EQ(B_ENTRY_NOT_FOUND, directory.GetNextEntry(&entry));
	EXPECT_EQ(B_NO_INIT, entry.InitCheck());
}


TEST_F(DirectoryTest, EmptyOrNoFolder_HasNoEntries)
{
	fFolder.AddFolder("empty");
	fFolder.AddFile("file", "");
	EXPECT_EQ(B_NOT_A_DIRECTORY, BDirectory(fFolder.PathOf("file").c_str()).InitCheck());
	EXPECT_EQ(B_ENTRY_NOT_FOUND, BDirectory(fFolder.PathOf("none").c_str()).InitCheck());
	EXPECT_EQ(B_BAD_VALUE, BDirectory(static_cast<const char*>(NULL)).InitCheck());
	BEntry entry;
	EXPECT_EQ(B_ENTRY_NOT_FOUND, BDirectory(fFolder.PathOf("empty").c_str()).GetNextEntry(&entry));
	BDirectory unset;
	EXPECT_EQ(B_NO_INIT, unset.GetNextEntry(&entry));
}


TEST_F(DirectoryTest, CreateDirectory_LeavesAnExistingOneAlone)
{
	BDirectory directory(fFolder.Path().c_str());
	BDirectory created;
	EXPECT_EQ(B_OK, directory.CreateDirectory("Downloads", &created));
	fFolder.AddFile("Downloads/file", "x");
	EXPECT_EQ(B_FILE_EXISTS, directory.CreateDirectory("Downloads", NULL));
	EXPECT_EQ(std::multiset<std::string>{"file"}, remaining_names(created));
	EXPECT_EQ(B_ENTRY_NOT_FOUND, directory.CreateDirectory("none/sub", NULL));

	// Without a directory, from an absolute path.
	EXPECT_EQ(B_OK, BDirectory().CreateDirectory(fFolder.PathOf("other").c_str(), NULL));
	EXPECT_TRUE(BEntry(fFolder.PathOf("other").c_str()).IsDirectory());
}
