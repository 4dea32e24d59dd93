/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TrackerListing.h"

#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include <String.h>

#include "WireBytes.h"
#include "WireRecords.h"


// The names and descriptions of all records that are whole. The bytes stand in memory of exactly
// their size.
static std::vector<std::string>
texts_of(const std::string& listing)
{
	const std::unique_ptr<uint8[]> bytes(new uint8[listing.size()]);
	listing.copy(reinterpret_cast<char*>(bytes.get()), listing.size());

	std::vector<std::string> texts;
	TrackerListing records(bytes.get(), listing.size());
	TrackerRecord record;
	while (records.Next(&record))
		texts.push_back(std::string(record.name) + "|" + record.description);
	return texts;
}


TEST(TrackerListingTest, Request_IsSixBytes)
{
	std::string buffer(7, '!');
	TrackerListing::BuildRequest(reinterpret_cast<uint8*>(buffer.data()));
	EXPECT_EQ("HTRK" + wire16(1) + "!", buffer);
}


TEST(TrackerListingTest, Header_SaysHowMuchFollows)
{
	for (const auto& [messageSize, expected] :
		{std::pair<uint16, size_t>(0, 0), {3, 0}, {4, 0}, {5, 1}, {65535, 65531}}) {
		SCOPED_TRACE(messageSize);
		const std::string header = wire_tracker_header(messageSize, 0x1234);
		size_t size = 77;
		uint16 count = 77;
		EXPECT_TRUE(TrackerListing::ReadHeader(reinterpret_cast<const uint8*>(header.data()), &size,
			&count));
		EXPECT_EQ(expected, size);
		EXPECT_EQ(0x1234, count);
	}
}


TEST(TrackerListingTest, HeaderWithoutTheMagic_IsNone)
{
	for (size_t i = 0; i < 4; i++) {
		SCOPED_TRACE(i);
		std::string header = wire_tracker_header(100, 1);
		header[i] = static_cast<char>(header[i] | 0x20);
		size_t size = 0;
		uint16 count = 0;
		EXPECT_FALSE(TrackerListing::ReadHeader(reinterpret_cast<const uint8*>(header.data()),
			&size, &count));
	}
}


TEST(TrackerListingTest, Record_HasAllItsFields)
{
	const std::string bytes = wire_server_record("Name", "Description", 65535, 40000);
	TrackerListing listing(reinterpret_cast<const uint8*>(bytes.data()), bytes.size());
	TrackerRecord record;
	ASSERT_TRUE(listing.Next(&record));
	EXPECT_EQ(10, record.address[0]);
	EXPECT_EQ(20, record.address[1]);
	EXPECT_EQ(30, record.address[2]);
	EXPECT_EQ(40, record.address[3]);
	EXPECT_EQ(65535, record.port);
	EXPECT_EQ(40000, record.users);
	EXPECT_STREQ("Name", record.name);
	EXPECT_STREQ("Description", record.description);
	EXPECT_FALSE(listing.Next(&record));
}


TEST(TrackerListingTest, Texts_OfAnyLengthAreRead)
{
	for (const size_t length : {0, 1, 254, 255}) {
		SCOPED_TRACE(length);
		const std::string name(length, 'n');
		const std::string description(255 - length, 'd');
		std::string both = name;
		both.append("|").append(description);
		const std::vector<std::string> expected = {both, "next|"};
		EXPECT_EQ(expected,
			texts_of(wire_server_record(name, description) + wire_server_record("next", "")));
	}
}


TEST(TrackerListingTest, ListingCutAtAnyByte_HasTheWholeRecordsBefore)
{
	const std::string first = wire_server_record("one", "first");
	const std::string listing = first + wire_server_record("two", "second");
	for (size_t length = 0; length <= listing.size(); length++) {
		SCOPED_TRACE(length);
		size_t expected = 0;
		if (length >= first.size())
			expected = length == listing.size() ? 2 : 1;
		EXPECT_EQ(expected, texts_of(listing.substr(0, length)).size());
	}
}


TEST(TrackerListingTest, LengthPastTheEnd_Stops)
{
	const std::string start = wire_server_record("one", "first") + std::string(10, 'x');
	for (const std::string& rest : {wire8(255) + "short", wire8(5) + "short",
			 wire8(5) + "short" + wire8(255) + "text", wire8(5) + "short" + wire8(5) + "text"}) {
		SCOPED_TRACE(rest);
		EXPECT_EQ(1u, texts_of(start + rest).size());
	}
}


TEST(TrackerListingTest, Address_IsTakenApartAtAValidPortOnly)
{
	struct Case {
		const char* address;
		const char* host;
		uint16 port;
	};
	static const Case kCases[] = {
		{"tracker.example", "tracker.example", 5498},
		{"tracker.example:1", "tracker.example", 1},
		{"tracker.example:65535", "tracker.example", 65535},
		{"a:b:6000", "a:b", 6000},
		{"h:5498", "h", 5498},
		{"h: 6000", "h", 6000},
		{"h:6000th", "h", 6000},
		{"h:65536", "h:65536", 5498},
		{"h:99999", "h:99999", 5498},
		{"h:0", "h:0", 5498},
		{"h:-1", "h:-1", 5498},
		{"h:4294967297", "h:4294967297", 5498},
		{"h:99999999999999999999999", "h:99999999999999999999999", 5498},
		{"h:port", "h:port", 5498},
		{"h:", "h:", 5498},
		{":6000", ":6000", 5498},
		{":", ":", 5498},
		{"", "", 5498},
	};
	for (const Case& example : kCases) {
		SCOPED_TRACE(example.address);
		BString host("old");
		EXPECT_EQ(example.port, TrackerListing::SplitAddress(example.address, &host));
		EXPECT_STREQ(example.host, host.String());
	}
}
