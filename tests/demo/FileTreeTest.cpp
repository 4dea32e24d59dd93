/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FileTree.h"

#include <gtest/gtest.h>

#include "WireBytes.h"


using namespace demo;


static FileRecord
record(const std::string& name, uint64_t size)
{
	FileRecord file;
	file.name = name;
	file.type = "BINA";
	file.creator = "????";
	file.data = std::make_shared<PatternContent>(size);
	return file;
}


TEST(FileTreeTest, Path_TakenApart)
{
	FileTree::Path path;
	std::string value("\x00\x02"
					  "\x00\x00\x01"
					  "a"
					  "\x00\x00\x02"
					  "bc",
		11);
	ASSERT_TRUE(FileTree::ParsePath(value, &path));
	EXPECT_EQ(path, (FileTree::Path{"a", "bc"}));
	for (size_t size = 1; size < value.size(); size++) {
		SCOPED_TRACE(size);
		EXPECT_FALSE(FileTree::ParsePath(value.substr(0, size), &path));
	}
}


TEST(FileTreeTest, EmptyPath_IsTheRoot)
{
	FileTree::Path path = {"before"};
	EXPECT_TRUE(FileTree::ParsePath("", &path));
	EXPECT_TRUE(path.empty());
	EXPECT_TRUE(FileTree::ParsePath(std::string(2, '\0'), &path));
	EXPECT_TRUE(path.empty());
	FileTree tree;
	EXPECT_EQ(tree.FindFolder({}), &tree.Root());
}


TEST(FileTreeTest, Folders_FoundOneInAnother)
{
	FileTree tree;
	FileNode* inner = tree.FindFolder({"A drawer", "in a drawer"});
	ASSERT_NE(inner, nullptr);
	EXPECT_EQ(inner->Record().name, "in a drawer");
	EXPECT_EQ(tree.FindFolder({"A drawer", "nothing"}), nullptr);
	EXPECT_EQ(tree.FindFolder({"Read me.txt"}), nullptr) << "a file";
}


TEST(FileTreeTest, Entry_OfAFileAndOfAFolder)
{
	EXPECT_EQ(FileNode::File(record("name", 0x01020304))->Entry(),
		"BINA????" + wire32(0x01020304) + wire32(0) + wire32(4) + "name");
	auto folder = FileNode::Folder("box");
	folder->Add(FileNode::File(record("a", 1)));
	folder->Add(FileNode::File(record("b", 1)));
	EXPECT_EQ(folder->Entry(), "fldrn/a " + wire32(2) + wire32(0) + wire32(3) + "box");
}


TEST(FileTreeTest, Stock_HasTheSizesThatMatter)
{
	FileTree tree;
	FileNode* sizes = tree.FindFolder({"Sizes"});
	ASSERT_NE(sizes, nullptr);
	struct {
		const char* name;
		uint64_t size;
	} files[] = {{"empty", 0}, {"1 byte", 1}, {"1023 bytes", 1023}, {"1024 bytes", 1024},
		{"1048575 bytes", 1048575}, {"1048576 bytes", 1048576}, {"256 MiB", 268435456}};
	for (const auto& file : files) {
		SCOPED_TRACE(file.name);
		FileNode* node = sizes->Find(file.name);
		ASSERT_NE(node, nullptr);
		EXPECT_EQ(node->Record().data->Size(), file.size);
	}
	EXPECT_EQ(tree.FindFolder({"Many"})->Children().size(), 5000u);
	EXPECT_EQ(tree.FindFolder({"Very many"})->Children().size(), 20000u);
	EXPECT_EQ(tree.FindFolder({"Parts"})->Children().size(), 10u);
}


TEST(FileTreeTest, Upload_ShownAndReplacedByTheNext)
{
	FileTree tree;
	ASSERT_TRUE(tree.AddUpload({"Uploads"}, record("mine", 10)));
	ASSERT_TRUE(tree.AddUpload({"Uploads"}, record("mine", 20)));
	FileNode* uploads = tree.FindFolder({"Uploads"});
	ASSERT_EQ(uploads->Children().size(), 1u);
	EXPECT_EQ(uploads->Find("mine")->Record().data->Size(), 20u);
}


TEST(FileTreeTest, UploadOverTheStock_Refused)
{
	FileTree tree;
	EXPECT_FALSE(tree.AddUpload({}, record("Read me.txt", 10)));
	EXPECT_FALSE(tree.AddUpload({}, record("Sizes", 10)));
	EXPECT_FALSE(tree.AddUpload({"nowhere"}, record("mine", 10)));
}


TEST(FileTreeTest, TooManyUploads_Refused)
{
	FileTree tree;
	for (size_t i = 0; i < FileTree::kMaxUploads; i++)
		ASSERT_TRUE(tree.AddUpload({"Uploads"}, record(std::to_string(i), 1)));
	EXPECT_FALSE(tree.HasRoomFor(1));
	EXPECT_FALSE(tree.AddUpload({"Uploads"}, record("one more", 1)));
	EXPECT_TRUE(tree.AddUpload({"Uploads"}, record("0", 1))) << "in place of another";
}


TEST(FileTreeTest, TooLargeUploads_Refused)
{
	FileTree tree;
	ASSERT_TRUE(tree.AddUpload({"Uploads"}, record("large", FileTree::kMaxUploaded)));
	EXPECT_TRUE(tree.HasRoomFor(0));
	EXPECT_FALSE(tree.HasRoomFor(1));
}
