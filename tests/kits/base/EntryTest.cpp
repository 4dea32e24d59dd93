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


class EntryTest : public testing::Test {
protected:
	TemporaryFolder fFolder;
};


TEST_F(EntryTest, NameThatIsNotThere_IsAnEntryNeverthelessButNotInAFolderThatIsNot)
{
	BEntry entry(fFolder.PathOf("none").c_str());
	EXPECT_EQ(B_OK, entry.InitCheck());
	EXPECT_FALSE(entry.Exists());
	EXPECT_EQ(fFolder.PathOf("none"), path_of(entry));
	off_t size = 7;
	EXPECT_EQ(B_ENTRY_NOT_FOUND, entry.GetSize(&size));
	EXPECT_EQ(7, size);

	BEntry nowhere(fFolder.PathOf("none/name").c_str());
	EXPECT_EQ(B_ENTRY_NOT_FOUND, nowhere.InitCheck());
	BPath path;
	EXPECT_EQ(B_NO_INIT, nowhere.GetPath(&path));
}


TEST_F(EntryTest, FileAndRoot_AreWhatTheyAre)
{
	fFolder.AddFile("file.txt", "12345");
	BEntry entry(fFolder.PathOf("file.txt").c_str());
	EXPECT_TRUE(entry.Exists());
	EXPECT_TRUE(entry.IsFile());
	EXPECT_FALSE(entry.IsDirectory());
	off_t size = 0;
	EXPECT_EQ(B_OK, entry.GetSize(&size));
	EXPECT_EQ(5, size);
	EXPECT_EQ(fFolder.PathOf("file.txt"), path_of(entry));

	BEntry root("/");
	EXPECT_EQ("/", path_of(root));
	EXPECT_TRUE(root.IsDirectory());
}


TEST_F(EntryTest, RawBytesInNames_AreKept)
{
	std::string name = "\x8e\xff\x01 name";
	fFolder.AddFile(name, "x");
	BEntry entry(fFolder.PathOf(name).c_str());
	EXPECT_TRUE(entry.Exists());
	EXPECT_EQ(fFolder.PathOf(name), path_of(entry));
	entry_ref ref;
	ASSERT_EQ(B_OK, entry.GetRef(&ref));
	EXPECT_EQ(name, ref.name);
	EXPECT_EQ(fFolder.PathOf(name), BPath(&ref).Path());
}


TEST_F(EntryTest, Reference_FindsTheEntryAgain)
{
	fFolder.AddFile("file", "");
	entry_ref ref;
	ASSERT_EQ(B_OK, get_ref_for_path(fFolder.PathOf("file").c_str(), &ref));
	entry_ref copy;
	copy = ref;
	EXPECT_EQ(fFolder.PathOf("file"), BPath(&copy).Path());
	copy.set_name("other");
	EXPECT_EQ(fFolder.PathOf("other"), BPath(&copy).Path());
	EXPECT_EQ(fFolder.PathOf("file"), BPath(&ref).Path());
	EXPECT_NE(B_OK, get_ref_for_path(fFolder.PathOf("none/file").c_str(), &ref));
}


TEST_F(EntryTest, EmptyReference_IsNoEntry)
{
	entry_ref ref;
	EXPECT_EQ(NULL, ref.name);
	EXPECT_EQ(B_BAD_VALUE, BEntry(&ref).InitCheck());
	ref.set_name("name");
	EXPECT_EQ(B_ENTRY_NOT_FOUND, BEntry(&ref).InitCheck());
}


TEST_F(EntryTest, Link_IsFollowedOnlyWhenAskedTo)
{
	fFolder.AddFile("file", "12345");
	fFolder.AddLink("link", "file");
	fFolder.AddLink("second", "link");
	EXPECT_TRUE(BEntry(fFolder.PathOf("second").c_str()).IsSymLink());
	entry_ref ref;
	ASSERT_EQ(B_OK, get_ref_for_path(fFolder.PathOf("second").c_str(), &ref));
	EXPECT_STREQ("second", ref.name);
	EXPECT_TRUE(BEntry(&ref).IsSymLink());
	for (const BEntry& followed :
		{BEntry(fFolder.PathOf("second").c_str(), true), BEntry(&ref, true)}) {
		EXPECT_EQ(fFolder.PathOf("file"), path_of(followed));
		EXPECT_TRUE(followed.IsFile());
		off_t size = 0;
		EXPECT_EQ(B_OK, followed.GetSize(&size));
		EXPECT_EQ(5, size);
	}
}


TEST_F(EntryTest, LinkThatLeadsNowhere_HasNoSizeWhenFollowed)
{
	fFolder.AddLink("name", "none");
	fFolder.AddLink("folder", "none/name");
	for (const char* name : {"name", "folder"}) {
		SCOPED_TRACE(name);
		BEntry followed(fFolder.PathOf(name).c_str(), true);
		EXPECT_FALSE(followed.Exists());
		off_t size = 7;
		EXPECT_NE(B_OK, followed.GetSize(&size));
		EXPECT_EQ(7, size);
		EXPECT_TRUE(BEntry(fFolder.PathOf(name).c_str()).IsSymLink());
	}
}


TEST_F(EntryTest, LinkToItselfAndNameTooLong_AreErrors)
{
	fFolder.AddLink("loop", "loop");
	EXPECT_EQ(B_LINK_LIMIT, BEntry(fFolder.PathOf("loop").c_str(), true).InitCheck());
	EXPECT_EQ(B_OK, BEntry(fFolder.PathOf("loop").c_str()).InitCheck());
	EXPECT_EQ(B_NAME_TOO_LONG, BEntry(fFolder.PathOf(std::string(256, 'x')).c_str()).InitCheck());
	EXPECT_EQ(B_OK, BEntry(fFolder.PathOf(std::string(255, 'x')).c_str()).InitCheck());
}
