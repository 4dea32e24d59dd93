/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Stock.h"

#include <cstdio>
#include <memory>
#include <string>
#include <utility>

#include "FileTree.h"
#include "Picture.h"


namespace demo {


static const size_t kManyFiles = 5000;
static const size_t kVeryManyFiles = 20000;
static const size_t kParts = 10;
static const uint64_t kPartSize = static_cast<uint64_t>(16) << 20;

static const char* const kReadMe
	= "Welcome to the shelves of the Lantern Café.\r\r"
	  "Sizes: files of 0 bytes to a gigabyte. The large ones are made while they are read.\r"
	  "Names: names in several scripts, old encodings, and some that mean trouble.\r"
	  "Many, Very many: folders of 5,000 and of 20,000 files.\r"
	  "Parts: ten files to be fetched at once.\r"
	  "Pictures, Archives: files that clients show with pictures of their own.\r"
	  "Trouble: files that cannot be had, each in its own way.\r"
	  "Keeper's drawer: for keepers only.\r"
	  "Uploads: leave something here; it stays until the house closes.\r";


static FileRecord
record(const std::string& name, ContentReference data)
{
	FileRecord file;
	file.name = name;
	file.type = "BINA";
	file.creator = "????";
	file.data = std::move(data);
	return file;
}


static ContentReference
text(const std::string& bytes)
{
	return std::make_shared<TextContent>(bytes);
}


static ContentReference
pattern(uint64_t size)
{
	return std::make_shared<PatternContent>(size);
}


static void
add_text(FileNode& folder, const std::string& name, const std::string& bytes)
{
	FileRecord file = record(name, text(bytes));
	file.type = "TEXT";
	file.creator = "ttxt";
	folder.Add(FileNode::File(file));
}


static void
fill_sizes(FileNode& folder)
{
	static const struct {
		const char* name;
		uint64_t size;
	} kFiles[] = {
		{"empty", 0},
		{"1 byte", 1},
		{"1023 bytes", 1023},
		{"1024 bytes", 1024},
		{"1048575 bytes", 1048575},
		{"1048576 bytes", 1048576},
		{"16 MiB", static_cast<uint64_t>(16) << 20},
		{"256 MiB", static_cast<uint64_t>(256) << 20},
		{"1 GiB", static_cast<uint64_t>(1) << 30},
	};
	for (const auto& file : kFiles)
		folder.Add(FileNode::File(record(file.name, pattern(file.size))));
}


static void
fill_names(FileNode& folder)
{
	for (const char* name : {"Grüße.txt", "Чай с лимоном.txt", "お茶の時間.txt", "Φάρος.txt",
			 "100% wool & silk.txt", "a name with   spaces.txt", "<b>bold</b> %s.txt"})
		add_text(folder, name, std::string("This file is called ") + name + ".\r");

	// An accented e as it was written before there was Unicode.
	add_text(folder, "R\x8esum\x8e.txt", "The name is older than UTF-8.\r");
	add_text(folder, std::string(251, 'n') + ".txt", "Names end at 255 bytes.\r");

	FileNode& odd = *folder.Add(FileNode::Folder("Odd ones"));
	for (const char* name : {"../../escaped.txt", "..", ".", "", "/absolute.txt", "in/side.txt",
			 "tab\there.txt", "line\nend.txt", "escape\x1b[31m.txt", "\xff\xfe.txt"})
		add_text(odd, name, "Odd.\r");
}


static void
fill_many(FileNode& folder, size_t count)
{
	ContentReference shared = pattern(4096);
	for (size_t i = 1; i <= count; i++) {
		char name[32];
		snprintf(name, sizeof(name), "file %04zu.dat", i);
		folder.Add(FileNode::File(record(name, shared)));
	}
}


/*!	Their contents differ: each is a little longer than the one before. */
static void
fill_parts(FileNode& folder)
{
	for (size_t i = 1; i <= kParts; i++)
		folder.Add(FileNode::File(record("part " + std::to_string(i), pattern(kPartSize + i))));
}


static void
fill_pictures(FileNode& folder)
{
	FileRecord picture = record("Lantern.bmp", text(night_picture(320, 200)));
	picture.type = "BMPf";
	folder.Add(FileNode::File(picture));
	for (const char* name : {"Harbour.jpg", "Harbour.JPEG", "Map.png", "Map.gif", "Scan.tif",
			 "Scan.tiff", "Layers.psd", "Old.pcx"})
		folder.Add(FileNode::File(record(name, pattern(2000))));
}


static void
fill_archives(FileNode& folder)
{
	for (const char* name : {"Fonts.sit", "Game.sea", "Mail.hqx", "SOUNDS.SIT"})
		folder.Add(FileNode::File(record(name, pattern(3000))));

	FileRecord forked = record("With a resource fork.sit", pattern(5000));
	forked.comment = "What follows the data is for machines that are long gone.";
	forked.resource = pattern(7000);
	folder.Add(FileNode::File(forked));
}


static void
fill_trouble(FileNode& folder)
{
	static const struct {
		const char* name;
		Trouble trouble;
	} kFiles[] = {
		{"gone meanwhile", Trouble::kMissing},
		{"without a reference", Trouble::kNoReference},
		{"hangs up", Trouble::kHangsUp},
		{"says nothing", Trouble::kSilent},
		{"cut short", Trouble::kCutShort},
	};
	for (const auto& entry : kFiles) {
		FileRecord file = record(entry.name, pattern(100000));
		file.trouble = entry.trouble;
		folder.Add(FileNode::File(file));
	}
	FileRecord locked = record("locked", pattern(1000));
	locked.isLocked = true;
	folder.Add(FileNode::File(locked));

	FileNode& records = *folder.Add(FileNode::Folder("Broken listing"));
	add_text(records, "before.txt", "Fine.\r");
	std::string start = std::string("TEXTttxt") + std::string("\xff\xff\xff\xff\0\0\0\0", 8);
	records.Add(FileNode::Raw("short"));
	records.Add(FileNode::Raw(start + std::string("\0\x01\0\x05", 4) + "named"));
	records.Add(FileNode::Raw(start + std::string("\0\0\0\x14", 4) + "too short"));
	records.Add(FileNode::Raw(start + std::string("\0\0\0\x0c", 4) + "over 2^31..."));
	add_text(records, "after.txt", "Fine as well.\r");
}


void
fill_stock(FileNode& root)
{
	add_text(root, "Read me.txt", kReadMe);
	fill_sizes(*root.Add(FileNode::Folder("Sizes")));
	fill_names(*root.Add(FileNode::Folder("Names")));
	fill_many(*root.Add(FileNode::Folder("Many")), kManyFiles);
	fill_many(*root.Add(FileNode::Folder("Very many")), kVeryManyFiles);
	fill_parts(*root.Add(FileNode::Folder("Parts")));
	fill_pictures(*root.Add(FileNode::Folder("Pictures")));
	fill_archives(*root.Add(FileNode::Folder("Archives")));
	fill_trouble(*root.Add(FileNode::Folder("Trouble")));

	FileNode* inner = &root;
	for (const char* name : {"A drawer", "in a drawer", "в ящике", "in a drawer", "引き出しの中"})
		inner = inner->Add(FileNode::Folder(name));
	add_text(*inner, "The innermost thing.txt", "You have found it.\r");

	FileNode& drawer = *root.Add(FileNode::Folder("Keeper's drawer"));
	drawer.SetLocked();
	add_text(drawer, "Ledger.txt", "Page twelve: eleven cups out, ten cups in.\r");

	root.Add(FileNode::Folder("Empty"));
	root.Add(FileNode::Folder("Uploads"));
}


} // namespace demo
