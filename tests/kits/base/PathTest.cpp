/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Path.h>

#include <Entry.h>
#include <gtest/gtest.h>

#include "TemporaryFolder.h"


TEST(PathTest, NewOrOfBadSources_IsNotSet)
{
	BPath path;
	EXPECT_EQ(NULL, path.Path());
	EXPECT_EQ(NULL, path.Leaf());
	EXPECT_NE(B_OK, path.Append("x"));
	EXPECT_EQ(B_NO_INIT, path.GetParent(&path));
	EXPECT_EQ(NULL, BPath(static_cast<const char*>(NULL)).Path());
	EXPECT_EQ(NULL, BPath("/base", "/absolute").Path());
	EXPECT_EQ(NULL, BPath("").Path());
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
	EXPECT_EQ(NULL, BPath(folder.PathOf("none/../x").c_str()).Path());
}


TEST(PathTest, RelativePathOrReference_BecomesAbsolute)
{
	char current[PATH_MAX];
	ASSERT_TRUE(getcwd(current, sizeof(current)) != NULL);
	EXPECT_EQ(std::string(current) + "/name", BPath("name").Path());
	EXPECT_STREQ("/does/not/exist", BPath("/does/not/exist").Path());
	EXPECT_STREQ("exist", BPath("/does/not/exist").Leaf());

	TemporaryFolder folder;
	entry_ref ref;
	EXPECT_EQ(NULL, BPath(&ref).Path());
	ASSERT_EQ(B_OK, get_ref_for_path(folder.PathOf("name").c_str(), &ref));
	EXPECT_EQ(folder.PathOf("name"), BPath(&ref).Path());
}
