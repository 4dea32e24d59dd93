/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Entry.h>

#include <Directory.h>
#include <gtest/gtest.h>
#include <Path.h>

#include "TemporaryFolder.h"


TEST(EntryTest, NameThatIsNotThere_IsAnEntryNevertheless)
{
	TemporaryFolder folder;
	BEntry entry(folder.PathOf("none").c_str());
	EXPECT_EQ(B_OK, entry.InitCheck());
	EXPECT_FALSE(entry.Exists());
	EXPECT_STREQ("none", entry.Name());
	off_t size = 7;
	EXPECT_EQ(B_ENTRY_NOT_FOUND, entry.GetSize(&size));
	EXPECT_EQ(7, size);
}


TEST(EntryTest, FolderThatIsNotThere_IsAnError)
{
	TemporaryFolder folder;
	BEntry entry(folder.PathOf("none/name").c_str());
	EXPECT_EQ(B_ENTRY_NOT_FOUND, entry.InitCheck());
	EXPECT_EQ(NULL, entry.Name());
	char name[B_FILE_NAME_LENGTH] = "x";
	EXPECT_NE(B_OK, entry.GetName(name));
	EXPECT_STREQ("", name);
}


TEST(EntryTest, File_HasSizeNameAndPath)
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
	char name[B_FILE_NAME_LENGTH];
	EXPECT_EQ(B_OK, entry.GetName(name));
	EXPECT_STREQ("file.txt", name);
	BPath path;
	EXPECT_EQ(B_OK, entry.GetPath(&path));
	EXPECT_EQ(folder.PathOf("file.txt"), path.Path());
	time_t modified = 0;
	EXPECT_EQ(B_OK, entry.GetModificationTime(&modified));
	EXPECT_GT(modified, 0);
}


TEST(EntryTest, RawBytesInNames_AreKept)
{
	TemporaryFolder folder;
	std::string name = "\x8e\xff\x01 name";
	folder.AddFile(name, "x");
	BEntry entry(folder.PathOf(name).c_str());
	EXPECT_TRUE(entry.Exists());
	EXPECT_EQ(name, entry.Name());
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
	entry_ref copy(ref);
	EXPECT_TRUE(ref == copy);
	EXPECT_TRUE(BEntry(&copy) == BEntry(folder.PathOf("file").c_str()));
	copy.set_name("other");
	EXPECT_TRUE(ref != copy);
	EXPECT_EQ(folder.PathOf("other"), BPath(&copy).Path());
	copy = ref;
	EXPECT_TRUE(ref == copy);
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
		EXPECT_STREQ("file", followed.Name());
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


TEST(EntryTest, Parent_EndsAtTheRoot)
{
	TemporaryFolder folder;
	BEntry entry(folder.PathOf("name").c_str());
	BDirectory directory;
	EXPECT_EQ(B_OK, entry.GetParent(&directory));
	EXPECT_EQ(folder.Path(), BPath(&directory).Path());
	EXPECT_EQ(B_OK, entry.GetParent(&entry));
	EXPECT_EQ(folder.Path(), BPath(&entry).Path());

	BEntry root("/");
	EXPECT_STREQ("/", root.Name());
	EXPECT_TRUE(root.IsDirectory());
	EXPECT_EQ(B_ENTRY_NOT_FOUND, root.GetParent(&entry));
}


TEST(EntryTest, Rename_ReplacesOnlyWhenAskedTo)
{
	TemporaryFolder folder;
	folder.AddFile("a", "1");
	folder.AddFile("b", "22");
	BEntry entry(folder.PathOf("a").c_str());
	EXPECT_EQ(B_FILE_EXISTS, entry.Rename("b"));
	EXPECT_EQ(B_OK, entry.Rename("b", true));
	EXPECT_STREQ("b", entry.Name());
	off_t size = 0;
	EXPECT_EQ(B_OK, entry.GetSize(&size));
	EXPECT_EQ(1, size);
	EXPECT_EQ(B_OK, entry.Remove());
	EXPECT_FALSE(entry.Exists());
	EXPECT_EQ(B_ENTRY_NOT_FOUND, entry.Remove());
}


TEST(EntryTest, NameTooLong_IsAnError)
{
	TemporaryFolder folder;
	EXPECT_EQ(B_NAME_TOO_LONG, BEntry(folder.PathOf(std::string(256, 'x')).c_str()).InitCheck());
	EXPECT_EQ(B_OK, BEntry(folder.PathOf(std::string(255, 'x')).c_str()).InitCheck());
}
