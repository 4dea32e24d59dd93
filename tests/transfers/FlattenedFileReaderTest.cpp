/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FlattenedFileReader.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "WireBytes.h"
#include "WireRecords.h"


/*!	Feeds as much of a stream as the reader asks for.
	\param piece The most bytes of data at a time.
	\return What it took for data.
*/
static std::string
feed(FlattenedFileReader& reader, const std::string& stream, size_t piece)
{
	std::string data;
	size_t position = 0;
	while (!reader.IsDone()) {
		size_t size = reader.NextSize();
		EXPECT_LT(0u, size);
		const bool isData = reader.IsAtData();
		if (isData)
			size = std::min(size, piece);
		else
			EXPECT_GE(FlattenedFileReader::kMaxDescriptionPiece + 0, size);
		if (stream.size() - position < size)
			break;
		if (isData)
			data.append(stream, position, size);
		reader.Take(reinterpret_cast<const uint8*>(stream.data()) + position, size);
		position += size;
	}
	return data;
}


TEST(FlattenedFileReaderTest, Start_AsksForBothHeaders)
{
	const FlattenedFileReader reader;
	EXPECT_FALSE(reader.IsAtData());
	EXPECT_FALSE(reader.IsDone());
	EXPECT_EQ(40u, reader.NextSize());
}


TEST(FlattenedFileReaderTest, Data_IsFoundWhateverThePieces)
{
	const std::string stream = wire_file_object("Hello, world!");
	for (size_t piece = 1; piece <= 14; piece++) {
		SCOPED_TRACE(piece);
		FlattenedFileReader reader;
		EXPECT_EQ("Hello, world!", feed(reader, stream, piece));
		EXPECT_TRUE(reader.IsDone());
		EXPECT_EQ(0u, reader.NextSize());
	}
}


TEST(FlattenedFileReaderTest, InformationFork_IsAskedForInPiecesOf512)
{
	FlattenedFileReader reader;
	const std::string headers = wire_zeros(24) + wire_fork_header("INFO", 1025);
	reader.Take(reinterpret_cast<const uint8*>(headers.data()), headers.size());
	const std::string information = wire_zeros(512);
	for (const uint32 size : {512, 512, 1}) {
		EXPECT_EQ(size, reader.NextSize());
		reader.Take(reinterpret_cast<const uint8*>(information.data()), size);
	}
	EXPECT_EQ(16u, reader.NextSize());
}


TEST(FlattenedFileReaderTest, NoInformation_LeadsToTheDataHeader)
{
	for (const uint32 size : std::initializer_list<uint32>{0, 0x10000, 0xffff0000}) {
		SCOPED_TRACE(size);
		FlattenedFileReader reader;
		const std::string headers = wire_zeros(24) + wire_fork_header("INFO", size);
		reader.Take(reinterpret_cast<const uint8*>(headers.data()), headers.size());
		EXPECT_EQ(16u, reader.NextSize());
		EXPECT_FALSE(reader.IsAtData());
	}
}


TEST(FlattenedFileReaderTest, NoData_IsDoneAtOnce)
{
	FlattenedFileReader reader;
	EXPECT_EQ("", feed(reader, wire_file_object(""), 1));
	EXPECT_TRUE(reader.IsAtData());
	EXPECT_TRUE(reader.IsDone());
}


TEST(FlattenedFileReaderTest, LengthOf4GiB_IsTakenAsItStands)
{
	FlattenedFileReader reader;
	feed(reader,
		wire_zeros(24) + wire_fork_header("INFO", 0) + wire_fork_header("DATA", 0xffffffff), 1);
	EXPECT_EQ(0xffffffffu, reader.NextSize());
	EXPECT_FALSE(reader.IsDone());
}


TEST(FlattenedFileReaderTest, StreamCutAnywhere_IsNotDone)
{
	const std::string stream = wire_file_object("data");
	for (size_t length = 0; length < stream.size(); length++) {
		SCOPED_TRACE(length);
		FlattenedFileReader reader;
		feed(reader, stream.substr(0, length), 1);
		EXPECT_FALSE(reader.IsDone());
	}
}
