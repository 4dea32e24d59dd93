/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FileObject.h"

#include <gtest/gtest.h>

#include "FileTree.h"
#include "WireBytes.h"
#include "WireRecords.h"


using namespace demo;


static std::string
information(const std::string& name)
{
	return "AMACTEXTttxt" + std::string(4 + 4 + 32 + 8 + 8 + 2, '\0')
		+ wire16(static_cast<uint16_t>(name.size())) + name + wire16(0);
}


static std::string
fork(const std::string& type, const std::string& data)
{
	return wire_fork_header(type, static_cast<uint32_t>(data.size())) + data;
}


static std::string
object(uint16_t forks, const std::string& content)
{
	return "FILP" + wire16(1) + std::string(16, '\0') + wire16(forks) + content;
}


class FileObjectReaderTest : public testing::Test, public FileObjectReader::Receiver {
protected:
	bool HandleData(const uint8_t* bytes, size_t size) override
	{
		fData.append(reinterpret_cast<const char*>(bytes), size);
		return !fIsFull;
	}

	FileObjectReader::State Read(const std::string& bytes, uint64_t announced, size_t piece)
	{
		fData.clear();
		fReader = std::make_unique<FileObjectReader>(*this, announced);
		for (size_t i = 0; i < bytes.size(); i += piece) {
			std::string part = bytes.substr(i, piece);
			fReader->Feed(reinterpret_cast<const uint8_t*>(part.data()), part.size());
		}
		return fReader->CurrentState();
	}

	void ExpectBroken(const std::string& bytes)
	{
		EXPECT_EQ(Read(bytes, bytes.size(), 1000000), FileObjectReader::kBroken);
		EXPECT_EQ(Read(bytes, bytes.size(), 1), FileObjectReader::kBroken);
	}

	bool fIsFull = false;
	std::string fData;
	std::unique_ptr<FileObjectReader> fReader;
};


TEST(FileObjectTest, File_FlattenedByteForByte)
{
	FileRecord file;
	file.name = "name";
	file.type = "TEXT";
	file.creator = "ttxt";
	file.data = std::make_shared<TextContent>("data");
	std::string two = object(2, fork("INFO", information("name")) + fork("DATA", "data"));

	std::string bytes(two.size(), 0);
	ContentSequence sequence = flatten_file(file);
	ASSERT_EQ(sequence.Size(), two.size());
	sequence.Read(reinterpret_cast<uint8_t*>(&bytes[0]), bytes.size());
	EXPECT_EQ(bytes, two);

	file.resource = std::make_shared<TextContent>("old");
	std::string three = object(3, two.substr(24) + fork("MACR", "old"));
	bytes.resize(three.size());
	sequence = flatten_file(file);
	ASSERT_EQ(sequence.Size(), three.size());
	sequence.Read(reinterpret_cast<uint8_t*>(&bytes[0]), bytes.size());
	EXPECT_EQ(bytes, three);
}


TEST_F(FileObjectReaderTest, WholeObject_InPiecesOfAnySize)
{
	std::string bytes = object(3,
		fork("INFO", information("name")) + fork("DATA", "some data") + fork("MACR", "resource"));
	for (size_t piece : {1, 2, 3, 7, 16, 24, 100, 1000}) {
		SCOPED_TRACE(piece);
		EXPECT_EQ(Read(bytes, bytes.size(), piece), FileObjectReader::kComplete);
		EXPECT_EQ(fData, "some data");
		EXPECT_EQ(fReader->DataSize(), 9u);
		EXPECT_EQ(fReader->Name(), "name");
		EXPECT_EQ(fReader->Type(), "TEXT");
		EXPECT_EQ(fReader->Creator(), "ttxt");
	}
}


TEST_F(FileObjectReaderTest, EmptyForks_Complete)
{
	std::string bytes = object(2, fork("INFO", information("")) + fork("DATA", ""));
	EXPECT_EQ(Read(bytes, bytes.size(), 5), FileObjectReader::kComplete);
	EXPECT_EQ(fData, "");
}


TEST_F(FileObjectReaderTest, CutAtEachByte_WaitsForTheRest)
{
	std::string bytes = object(2, fork("INFO", information("name")) + fork("DATA", "data"));
	for (size_t size = 0; size < bytes.size(); size++) {
		SCOPED_TRACE(size);
		FileObjectReader::State state = Read(bytes.substr(0, size), bytes.size(), 1000);
		EXPECT_NE(state, FileObjectReader::kComplete);
		EXPECT_NE(state, FileObjectReader::kBroken);
	}
}


TEST_F(FileObjectReaderTest, NotWhatWasAnnounced_Broken)
{
	std::string bytes = object(2, fork("INFO", information("name")) + fork("DATA", "data"));
	for (uint64_t announced :
		std::initializer_list<uint64_t>{0, 23, 24, bytes.size() - 1, bytes.size() + 1}) {
		SCOPED_TRACE(announced);
		EXPECT_EQ(Read(bytes, announced, 1000), FileObjectReader::kBroken);
	}
	EXPECT_EQ(Read(bytes + "more", bytes.size(), 1000), FileObjectReader::kBroken);
}


TEST_F(FileObjectReaderTest, BadForks_Broken)
{
	std::string info = fork("INFO", information("name"));
	std::string data = fork("DATA", "data");
	ExpectBroken("PLIF" + object(2, info + data).substr(4));
	ExpectBroken("FILP" + wire16(2) + object(2, info + data).substr(6));
	ExpectBroken(object(0, ""));
	ExpectBroken(object(4, info + data));
	ExpectBroken(object(1, info));
	ExpectBroken(object(1, data));
	ExpectBroken(object(2, info + info));
	ExpectBroken(object(3, info + data + data));
	ExpectBroken(object(2, info + fork("ATAD", "data")));
	ExpectBroken(object(2, info + wire_fork_header("DATA", 0xffffffff) + "data"));
	ExpectBroken(object(2, fork("INFO", "too short") + data));
	ExpectBroken(object(2, fork("INFO", information(std::string(5000, 'n'))) + data));
	std::string longName = information("name");
	longName.replace(70, 2, wire16(7));
	ExpectBroken(object(2, fork("INFO", longName) + data));
}


TEST_F(FileObjectReaderTest, NoRoomForTheData_Broken)
{
	fIsFull = true;
	ExpectBroken(object(2, fork("INFO", information("name")) + fork("DATA", "data")));
}
