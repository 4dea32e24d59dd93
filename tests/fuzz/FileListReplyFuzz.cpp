/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include <Message.h>

#include "Require.h"
#include "ServerReplies.h"


static const size_t kParameterHeaderSize = 4;
static const uint16_t kFileField = 200;
static const size_t kEntryHeaderSize = 20;
static const uint32_t kMaxNameSize = 255;


static uint16_t
read_16(const uint8_t* bytes)
{
	return static_cast<uint16_t>(bytes[0] << 8 | bytes[1]);
}


static uint32_t
read_32(const uint8_t* bytes)
{
	return static_cast<uint32_t>(read_16(bytes)) << 16 | read_16(bytes + 2);
}


/*!	Bytes as a text in a message has them: up to the first zero byte. */
static std::string
text_of(const uint8_t* bytes, size_t size)
{
	const uint8_t* end = std::find(bytes, bytes + size, 0);
	return std::string(bytes, end);
}


// #pragma mark -


struct Entry {
	std::string name;
	std::string type;
	std::string creator;
	int32 size;

	bool operator==(const Entry& other) const
	{
		return name == other.name && type == other.type && creator == other.creator
			&& size == other.size;
	}
};


/*!	What a reply with these parameters lists, read in the plainest way. */
static std::vector<Entry>
expected_entries(const uint8_t* bytes, size_t size)
{
	std::vector<Entry> entries;
	while (size >= kParameterHeaderSize) {
		const uint16_t field = read_16(bytes);
		const size_t length = read_16(bytes + 2);
		bytes += kParameterHeaderSize;
		size -= kParameterHeaderSize;
		if (length > size)
			break;
		if (field == kFileField && length >= kEntryHeaderSize) {
			const size_t nameSize = std::min(read_32(bytes + 16), kMaxNameSize);
			if (kEntryHeaderSize + nameSize <= length) {
				entries.push_back({text_of(bytes + kEntryHeaderSize, nameSize), text_of(bytes, 4),
					text_of(bytes + 4, 4), static_cast<int32>(read_32(bytes + 8))});
			}
		}
		bytes += length;
		size -= length;
	}
	return entries;
}


static int32
count_values(const BMessage& message, const char* name)
{
	type_code type;
	int32 count = 0;
	return message.GetInfo(name, &type, &count) == B_OK ? count : 0;
}


static std::vector<Entry>
entries_of(const BMessage& listing)
{
	const int32 count = count_values(listing, "name");
	for (const char* field : {"type", "creator", "size"})
		require(count_values(listing, field) == count, "the fields of a list are parallel");
	std::vector<Entry> entries;
	for (int32 i = 0; i < count; i++) {
		entries.push_back({listing.GetString("name", i, "?"), listing.GetString("type", i, "?"),
			listing.GetString("creator", i, "?"), listing.GetInt32("size", i, 0)});
	}
	return entries;
}


/*!	The input is the parameters of a reply to the request for a file list. */
extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	BMessage listing;
	ReadFileList(ParameterWalker(data, size), "a/b", &listing);
	require(listing.GetString("path", "?") == std::string("a/b"), "the path that was asked for");
	require(entries_of(listing) == expected_entries(data, size), "the entries that are whole");
	return 0;
}
