/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Path.h>

#include <Directory.h>
#include <Entry.h>
#include <gtest/gtest.h>

#include "TemporaryFolder.h"


TEST(PathTest, New_IsNotSet)
{
	BPath path;
	EXPECT_EQ(B_NO_INIT, path.InitCheck());
	EXPECT_EQ(NULL, path.Path());
	EXPECT_EQ(NULL, path.Leaf());
	EXPECT_NE(B_OK, path.Append("x"));
}


TEST(PathTest, AbsolutePath_IsTakenAsItStands)
{
	BPath path("/does/not/exist");
	EXPECT_EQ(B_OK, path.InitCheck());
	EXPECT_STREQ("/does/not/exist", path.Path());
	EXPECT_STREQ("exist", path.Leaf());
}


TEST(PathTest, Append_AddsOneLeaf)
{
	BPath path("/base");
	EXPECT_EQ(B_OK, path.Append("assets"));
	EXPECT_EQ(B_OK, path.Append("a/b"));
	EXPECT_STREQ("/base/assets/a/b", path.Path());
	EXPECT_EQ(B_BAD_VALUE, path.Append("/absolute"));
	EXPECT_EQ(NULL, path.Path());
}


TEST(PathTest, GetParent_EndsAtTheRoot)
{
	BPath path("/base/folder");
	EXPECT_EQ(B_OK, path.GetParent(&path));
	EXPECT_STREQ("/base", path.Path());
	EXPECT_EQ(B_OK, path.GetParent(&path));
	EXPECT_STREQ("/", path.Path());
	EXPECT_STREQ("", path.Leaf());
	EXPECT_EQ(B_ENTRY_NOT_FOUND, path.GetParent(&path));
}


TEST(PathTest, DotsAndDoubledSlashes_AreNormalized)
{
	TemporaryFolder folder;
	folder.AddFolder("sub");
	EXPECT_EQ(folder.PathOf("new"), BPath(folder.PathOf("sub/..//new").c_str()).Path());
	EXPECT_EQ(folder.PathOf("sub"), BPath(folder.PathOf("sub/").c_str()).Path());
	EXPECT_EQ(folder.PathOf("sub"), BPath(folder.PathOf("sub/.").c_str()).Path());
	EXPECT_EQ(B_ENTRY_NOT_FOUND, BPath(folder.PathOf("none/../x").c_str()).InitCheck());
}


TEST(PathTest, RelativePath_BecomesAbsolute)
{
	char current[PATH_MAX];
	ASSERT_TRUE(getcwd(current, sizeof(current)) != NULL);
	EXPECT_EQ(std::string(current) + "/name", BPath("name").Path());
}


TEST(PathTest, Sources_GiveTheSamePath)
{
	TemporaryFolder folder;
	BDirectory directory(folder.Path().c_str());
	BEntry entry(&directory, "name");
	entry_ref ref;
	ASSERT_EQ(B_OK, entry.GetRef(&ref));
	EXPECT_EQ(folder.PathOf("name"), BPath(&directory, "name").Path());
	EXPECT_EQ(folder.PathOf("name"), BPath(&entry).Path());
	EXPECT_EQ(folder.PathOf("name"), BPath(&ref).Path());
	EXPECT_EQ(folder.Path(), BPath(&directory).Path());
	EXPECT_TRUE(BPath(&entry) == BPath(folder.Path().c_str(), "name"));
	EXPECT_TRUE(BPath(&entry) != folder.Path().c_str());
}


TEST(PathTest, BadSources_AreTold)
{
	EXPECT_EQ(B_BAD_VALUE, BPath(static_cast<const char*>(NULL)).InitCheck());
	EXPECT_EQ(B_BAD_VALUE, BPath("/base", "/absolute").InitCheck());
	EXPECT_NE(B_OK, BPath("").InitCheck());
	BEntry unset;
	EXPECT_NE(B_OK, BPath(&unset).InitCheck());
	entry_ref ref;
	EXPECT_NE(B_OK, BPath(&ref).InitCheck());
}
