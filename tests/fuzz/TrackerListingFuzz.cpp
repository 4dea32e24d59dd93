/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <String.h>

#include "TrackerListing.h"


static void
check(bool holds, const char* what)
{
	if (holds)
		return;
	fprintf(stderr, "not so: %s\n", what);
	abort();
}


/*!	Compares a text that was read with the bytes from which it came: a length and so many of them.
*/
static bool
is_text(const char* text, const uint8_t* bytes)
{
	return memcmp(text, bytes + 1, bytes[0]) == 0 && text[bytes[0]] == '\0';
}


static void
read_listing(const uint8_t* bytes, size_t size)
{
	TrackerListing listing(bytes, size);
	TrackerRecord record;
	size_t at = 0;
	while (listing.Next(&record)) {
		check(size - at >= 12, "a record has 12 bytes");
		const uint8_t* name = bytes + at + 10;
		const uint8_t* description = name + 1 + name[0];
		check(description < bytes + size, "the name is whole");
		check(description + description[0] < bytes + size, "the description is whole");
		check(memcmp(record.address, bytes + at, 4) == 0, "the address is the first four bytes");
		check(record.port == (bytes[at + 4] << 8 | bytes[at + 5]), "the port follows");
		check(record.users == (bytes[at + 6] << 8 | bytes[at + 7]), "the users follow");
		check(is_text(record.name, name), "the name is its bytes");
		check(is_text(record.description, description), "the description is its bytes");
		at += 12 + name[0] + description[0];
	}

	// What is left is no whole record.
	if (size - at >= 12) {
		const size_t nameEnd = at + 11 + bytes[at + 10];
		check(nameEnd >= size || nameEnd + 1 + bytes[nameEnd] > size, "every whole record is read");
	}
}


static void
split_address(const uint8_t* bytes, size_t size)
{
	const std::string address(reinterpret_cast<const char*>(bytes), size);
	BString host;
	check(TrackerListing::SplitAddress(address.c_str(), &host) > 0, "there is a port");
	check(strncmp(address.c_str(), host.String(), static_cast<size_t>(host.Length())) == 0,
		"the host is the address or its beginning");
}


/*!	The input is a tracker's answer, and an address, too. */
extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	split_address(data, size);

	size_t listingSize = 0;
	uint16 serverCount = 0;
	if (size >= kTrackerHeaderSize
		&& TrackerListing::ReadHeader(data, &listingSize, &serverCount)) {
		check(listingSize < 65532, "the size of a listing is bounded");
		read_listing(data + kTrackerHeaderSize, size - kTrackerHeaderSize);
	}
	return 0;
}
