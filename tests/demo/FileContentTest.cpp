/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FileContent.h"

#include <unistd.h>

#include <gtest/gtest.h>


using namespace demo;


static std::string
read_all(ContentSequence& sequence, size_t piece)
{
	std::string bytes;
	std::vector<uint8_t> buffer(piece);
	while (!sequence.IsAtEnd()) {
		ssize_t count = sequence.Read(buffer.data(), piece);
		EXPECT_GT(count, 0);
		if (count <= 0)
			break;
		bytes.append(reinterpret_cast<const char*>(buffer.data()), static_cast<size_t>(count));
	}
	return bytes;
}


static ContentSequence
make_sequence()
{
	ContentSequence sequence;
	for (const char* text : {"", "ab", "", "cde", "f", ""})
		sequence.Append(std::make_shared<TextContent>(text));
	return sequence;
}


TEST(FileContentTest, Sequence_ReadInPiecesOfAnySize)
{
	for (size_t piece = 1; piece <= 8; piece++) {
		SCOPED_TRACE(piece);
		ContentSequence sequence = make_sequence();
		EXPECT_EQ(sequence.Size(), 6u);
		EXPECT_EQ(read_all(sequence, piece), "abcdef");
	}
}


TEST(FileContentTest, SequenceCut_EndsThere)
{
	for (size_t size = 0; size <= 6; size++) {
		SCOPED_TRACE(size);
		ContentSequence sequence = make_sequence();
		sequence.CutAt(size);
		EXPECT_EQ(sequence.Size(), 6u);
		EXPECT_EQ(read_all(sequence, 4), std::string("abcdef").substr(0, size));
	}
}


TEST(FileContentTest, EmptySequence_IsAtItsEnd)
{
	ContentSequence sequence;
	EXPECT_TRUE(sequence.IsAtEnd());
	uint8_t byte = 0;
	EXPECT_EQ(sequence.Read(&byte, 1), 0);
}


TEST(FileContentTest, Pattern_TheSameFromWhereverItIsRead)
{
	PatternContent pattern(1000);
	uint8_t bytes[1000];
	ASSERT_TRUE(pattern.Read(0, bytes, sizeof(bytes)));
	for (size_t i = 0; i < sizeof(bytes); i++) {
		uint8_t byte = 0;
		ASSERT_TRUE(pattern.Read(i, &byte, 1));
		EXPECT_EQ(byte, bytes[i]);
		EXPECT_EQ(byte, PatternContent::ByteAt(i));
	}
}


TEST(FileContentTest, DiskFile_ReadBackAndMissedAtItsEnd)
{
	int file = DiskContent::CreateFile();
	ASSERT_GE(file, 0);
	ASSERT_EQ(write(file, "abcdef", 6), 6);
	DiskContent content(file, 10);
	uint8_t bytes[10];
	ASSERT_TRUE(content.Read(2, bytes, 3));
	EXPECT_EQ(std::string(reinterpret_cast<char*>(bytes), 3), "cde");
	EXPECT_FALSE(content.Read(5, bytes, 5));
}
