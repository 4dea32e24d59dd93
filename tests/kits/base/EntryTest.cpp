/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Entry.h>

#include <gtest/gtest.h>
#include <Path.h>

#include "TemporaryFolder.h"


static std::string
path_of(const BEntry& entry)
{
	BPath path;
	EXPECT_EQ(B_OK, entry.GetPath(&path));
	return path.Path();
}


TEST(EntryTest, NameThatIsNotThere_IsAnEntryNevertheless)
{
	TemporaryFolder folder;
	BEntry entry(folder.PathOf("none").c_str());
	EXPECT_EQ(B_OK, entry.InitCheck());
	EXPECT_FALSE(entry.Exists());
	EXPECT_EQ(folder.PathOf("none"), path_of(entry));
	off_t size = 7;
	EXPECT_EQ(B_ENTRY_NOT_FOUND, entry.GetSize(&size));
	EXPECT_EQ(7, size);
}


TEST(EntryTest, FolderThatIsNotThere_IsAnError)
{
	TemporaryFolder folder;
	BEntry entry(folder.PathOf("none/name").c_str());
	EXPECT_EQ(B_ENTRY_NOT_FOUND, entry.InitCheck());
	BPath path;
	EXPECT_EQ(B_NO_INIT, entry.GetPath(&path));
}


TEST(EntryTest, File_HasSizeAndPath)
{
	TemporaryFolder folder;
	folder.AddFile("file.txt", "12345");
	BEntry entry(folder.PathOf("file.txt").c_str());
	EXPECT_TRUE(entry.Exists());
	EXPECT_TRUE(entry.IsFile());
	EXPECT_FALSE(entry.IsDirectory());
	off_t size = 0;
	EXPECT_EQ(B_OK, entry.GetSize(&size));
	EXPECT_EQ(5, size);
	EXPECT_EQ(folder.PathOf("file.txt"), path_of(entry));
}


TEST(EntryTest, RawBytesInNames_AreKept)
{
	TemporaryFolder folder;
	std::string name = "\x8e\xff\x01 name";
	folder.AddFile(name, "x");
	BEntry entry(folder.PathOf(name).c_str());
	EXPECT_TRUE(entry.Exists());
	EXPECT_EQ(folder.PathOf(name), path_of(entry));
	entry_ref ref;
	ASSERT_EQ(B_OK, entry.GetRef(&ref));
	EXPECT_EQ(name, ref.name);
	EXPECT_EQ(folder.PathOf(name), BPath(&ref).Path());
}


TEST(EntryTest, Reference_FindsTheEntryAgain)
{
	TemporaryFolder folder;
	folder.AddFile("file", "");
	entry_ref ref;
	ASSERT_EQ(B_OK, get_ref_for_path(folder.PathOf("file").c_str(), &ref));
	entry_ref copy;
	copy = ref;
	EXPECT_EQ(folder.PathOf("file"), BPath(&copy).Path());
	copy.set_name("other");
	EXPECT_EQ(folder.PathOf("other"), BPath(&copy).Path());
	EXPECT_EQ(folder.PathOf("file"), BPath(&ref).Path());
	EXPECT_NE(B_OK, get_ref_for_path(folder.PathOf("none/file").c_str(), &ref));
}


TEST(EntryTest, EmptyReference_IsNoEntry)
{
	entry_ref ref;
	EXPECT_EQ(NULL, ref.name);
	EXPECT_EQ(B_BAD_VALUE, BEntry(&ref).InitCheck());
	ref.set_name("name");
	EXPECT_EQ(B_ENTRY_NOT_FOUND, BEntry(&ref).InitCheck());
}


TEST(EntryTest, Link_IsFollowedOnlyWhenAskedTo)
{
	TemporaryFolder folder;
	folder.AddFile("file", "12345");
	folder.AddLink("link", "file");
	folder.AddLink("second", "link");
	EXPECT_TRUE(BEntry(folder.PathOf("second").c_str()).IsSymLink());
	entry_ref ref;
	ASSERT_EQ(B_OK, get_ref_for_path(folder.PathOf("second").c_str(), &ref));
	EXPECT_STREQ("second", ref.name);
	EXPECT_TRUE(BEntry(&ref).IsSymLink());
	for (const BEntry& followed :
		{BEntry(folder.PathOf("second").c_str(), true), BEntry(&ref, true)}) {
		EXPECT_EQ(folder.PathOf("file"), path_of(followed));
		EXPECT_TRUE(followed.IsFile());
		off_t size = 0;
		EXPECT_EQ(B_OK, followed.GetSize(&size));
		EXPECT_EQ(5, size);
	}
}


TEST(EntryTest, LinkThatLeadsNowhere_HasNoSizeWhenFollowed)
{
	TemporaryFolder folder;
	folder.AddLink("name", "none");
	folder.AddLink("folder", "none/name");
	for (const char* name : {"name", "folder"}) {
		SCOPED_TRACE(name);
		BEntry followed(folder.PathOf(name).c_str(), true);
		EXPECT_FALSE(followed.Exists());
		off_t size = 7;
		EXPECT_NE(B_OK, followed.GetSize(&size));
		EXPECT_EQ(7, size);
		EXPECT_TRUE(BEntry(folder.PathOf(name).c_str()).IsSymLink());
	}
}


TEST(EntryTest, LinkToItself_IsAnError)
{
	TemporaryFolder folder;
	folder.AddLink("loop", "loop");
	EXPECT_EQ(B_LINK_LIMIT, BEntry(folder.PathOf("loop").c_str(), true).InitCheck());
	EXPECT_EQ(B_OK, BEntry(folder.PathOf("loop").c_str()).InitCheck());
}


TEST(EntryTest, Root_IsAFolder)
{
	BEntry root("/");
	EXPECT_EQ("/", path_of(root));
	EXPECT_TRUE(root.IsDirectory());
}


TEST(EntryTest, NameTooLong_IsAnError)
{
	TemporaryFolder folder;
	EXPECT_EQ(B_NAME_TOO_LONG, BEntry(folder.PathOf(std::string(256, 'x')).c_str()).InitCheck());
	EXPECT_EQ(B_OK, BEntry(folder.PathOf(std::string(255, 'x')).c_str()).InitCheck());
}
