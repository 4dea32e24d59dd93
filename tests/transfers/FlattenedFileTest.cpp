/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FlattenedFile.h"

#include <gtest/gtest.h>

#include "WireBytes.h"
#include "WireRecords.h"


static const uint8 kUntouched = 0xee;


// What a function wrote to a buffer that has room for one byte more, which it must leave alone.
template<typename Function>
static std::string
written(size_t size, const Function& build)
{
	std::string buffer(size + 1, static_cast<char>(kUntouched));
	build(reinterpret_cast<uint8*>(buffer.data()));
	EXPECT_EQ(static_cast<char>(kUntouched), buffer[size]);
	buffer.resize(size);
	return buffer;
}


TEST(FlattenedFileTest, TransferRequest_HasReferenceAndSize)
{
	EXPECT_EQ("HTXF" + wire32(0x89abcdef) + wire32(0xfedcba98) + wire32(0),
		written(16, [](uint8* buffer) {
			FlattenedFile::BuildTransferRequest(buffer, 0x89abcdef, 0xfedcba98);
		}));
}


TEST(FlattenedFileTest, Header_HasVersionAndForkCount)
{
	EXPECT_EQ("FILP" + wire16(1) + wire_zeros(16) + wire16(2),
		written(24, FlattenedFile::BuildHeader));
}


TEST(FlattenedFileTest, InformationForkHeader_HasTheSizeForTheName)
{
	for (const auto& [length, size] : {std::pair<size_t, uint32>(0, 74), {9, 83}, {127, 201},
			 {128, 202}, {129, 202}, {100000, 202}}) {
		SCOPED_TRACE(length);
		const size_t nameLength = length;
		EXPECT_EQ(wire_fork_header("INFO", size), written(16, [nameLength](uint8* buffer) {
			FlattenedFile::BuildInformationForkHeader(buffer, nameLength);
		}));
	}
}


TEST(FlattenedFileTest, InformationFork_HasTheNameAndNothingKnownElse)
{
	for (const size_t length : {0, 1, 128, 129, 255}) {
		SCOPED_TRACE(length);
		const std::string name(length, '\xe9');
		const std::string expected = wire_information_fork(name.substr(0, 128));
		EXPECT_EQ(expected, written(expected.size(), [&](uint8* buffer) {
			EXPECT_EQ(expected.size(),
				FlattenedFile::BuildInformationFork(buffer, name.c_str(), name.size()));
		}));
		EXPECT_EQ(expected.size(), FlattenedFile::InformationForkSize(length));
	}
}


TEST(FlattenedFileTest, DataForkHeader_HasTheSize)
{
	EXPECT_EQ(wire_fork_header("DATA", 0xfedcba98), written(16, [](uint8* buffer) {
		FlattenedFile::BuildDataForkHeader(buffer, 0xfedcba98);
	}));
}


TEST(FlattenedFileTest, TotalSize_WrapsAt32Bits)
{
	EXPECT_EQ(130u, FlattenedFile::TotalSize(0, 0));
	EXPECT_EQ(130u + 128 + 1000, FlattenedFile::TotalSize(200, 1000));
	EXPECT_EQ(0xffffffffu, FlattenedFile::TotalSize(4, 0xffffffffLL - 134));
	EXPECT_EQ(0u, FlattenedFile::TotalSize(4, 0x100000000LL - 134));
	EXPECT_EQ(134u + 10, FlattenedFile::TotalSize(4, 0x100000000LL + 10));
}
