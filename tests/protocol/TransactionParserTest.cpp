/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransactionParser.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "HotlineProtocol.h"
#include "WireBytes.h"


// Feeds a stream in parts of at most so many bytes, the first of them of another size, and notes
// what comes out of it.
static std::vector<std::string>
parse(TransactionParser& parser, const std::string& bytes, size_t partSize, size_t firstSize = 0)
{
	std::vector<std::string> transactions;
	size_t position = 0;
	while (position < bytes.size()) {
		size_t size = std::min<size_t>(bytes.size() - position, parser.BytesNeeded());
		size = std::min(size, position < firstSize ? firstSize - position : partSize);
		memcpy(parser.Room(), bytes.data() + position, size);
		position += size;

		const TransactionParser::Result result = parser.Advance(static_cast<uint32>(size));
		if (result == TransactionParser::kFailed) {
			transactions.push_back("failed");
			break;
		}
		if (result == TransactionParser::kNeedsMore)
			continue;

		std::string text = std::to_string(parser.State()) + " id "
			+ std::to_string(parser.TransID()) + " error " + std::to_string(parser.ErrorCode());
		ParameterWalker walker = parser.Params();
		HotlineParam param;
		while (walker.Next(&param)) {
			text += " " + std::to_string(param.type) + ":"
				+ std::string(reinterpret_cast<const char*>(param.data), param.len);
		}
		transactions.push_back(text);
		EXPECT_TRUE(parser.Reset());
	}
	return transactions;
}


static std::vector<std::string>
parse(const std::string& bytes, size_t partSize = SIZE_MAX, size_t firstSize = 0)
{
	TransactionParser parser;
	return parse(parser, bytes, partSize, firstSize);
}


typedef std::vector<std::string> Parsed;


struct TypeAndState {
	uint32 type;
	int32 state;
};


static const TypeAndState kTypes[] = {{106, 1}, {104, 2}, {301, 3}, {302, 4}, {0x00010000, 5},
	{102, 6}, {109, 7}, {111, 8}, {355, 9}, {122, 10}, {113, 99}, {117, 99}, {118, 99}, {119, 99},
	{0, 99}, {0x0001006B, 99}, {0x01010000, 99}, {0x0001016A, 99}, {0x0100006A, 99},
	{0xFFFFFFFF, 99}};


TEST(TransactionParserTest, WholeTypeWord_DecidesWhatItIs)
{
	for (const TypeAndState& type : kTypes) {
		SCOPED_TRACE(type.type);
		EXPECT_EQ(parse(wire_transaction(type.type, 7, wire_param(101, "x"), 5)),
			Parsed({std::to_string(type.state) + " id 7 error 5 101:x"}));
	}
}


TEST(TransactionParserTest, EveryType_CutAtEachByteAndOneByOne)
{
	for (const TypeAndState& type : kTypes) {
		const std::string bytes = wire_transaction(type.type, 0xFFFFFFFF,
			wire_param(101, "hello") + wire_param(103, wire16(7)), 1);
		const Parsed expected = {
			std::to_string(type.state) + " id 4294967295 error 1 101:hello 103:" + wire16(7)};
		EXPECT_EQ(parse(bytes, 1), expected);
		for (size_t cut = 1; cut < bytes.size(); cut++) {
			SCOPED_TRACE(cut);
			EXPECT_EQ(parse(bytes, SIZE_MAX, cut), expected);
			EXPECT_EQ(parse(bytes.substr(0, cut)), Parsed());
		}
	}
}


TEST(TransactionParserTest, SeveralInARow_StayInStep)
{
	const std::string bytes = wire_transaction(106, 1, wire_param(101, std::string(300, 'x')))
		+ wire_transaction(111, 2, "") + wire_transaction(355, 3, wire_param(101, "b"))
		+ wire_transaction(999, 4, wire_param(101, "c")) + wire_transaction(104, 5, "zzz");
	for (const size_t size : std::initializer_list<size_t>{1, 3, 23, SIZE_MAX}) {
		SCOPED_TRACE(size);
		EXPECT_EQ(parse(bytes, size),
			Parsed({"1 id 1 error 0 101:" + std::string(300, 'x'), "9 id 3 error 0 101:b",
				"99 id 4 error 0 101:c", "2 id 5 error 0"}));
	}
}


TEST(TransactionParserTest, EachStage_AsksForNoMoreThanItself)
{
	TransactionParser parser;
	EXPECT_EQ(parser.BytesNeeded(), 22u);
	memcpy(parser.Room(), wire_header(106, 1, 0, 42, 7, 9).data(), 22);
	EXPECT_EQ(parser.Advance(21), TransactionParser::kNeedsMore);
	EXPECT_EQ(parser.BytesNeeded(), 1u);
	EXPECT_EQ(parser.Advance(1), TransactionParser::kNeedsMore);
	EXPECT_EQ(parser.BytesNeeded(), 40u);
	memset(parser.Room(), 0, 40);
	EXPECT_EQ(parser.Advance(40), TransactionParser::kComplete);
	EXPECT_TRUE(parser.Reset());
	EXPECT_EQ(parser.BytesNeeded(), 22u);
}


TEST(TransactionParserTest, SizeBelowThree_IsDroppedOrHasNoParameters)
{
	const std::string next = wire_transaction(106, 9, wire_param(101, "next"));
	const std::string nextParsed = "1 id 9 error 0 101:next";
	// Nothing behind the count: dropped at once. A size of 1 is one byte behind it.
	EXPECT_EQ(parse(wire_header(106, 1, 0, 2, 2, 0) + next), Parsed({nextParsed}));
	EXPECT_EQ(parse(wire_header(106, 1, 0, 0, 2, 0) + next), Parsed({nextParsed}));
	EXPECT_EQ(parse(wire_header(106, 1, 0, 1, 2, 0) + "!" + next),
		Parsed({"1 id 1 error 0", nextParsed}));
	EXPECT_EQ(parse(wire_header(106, 1, 0, 3, 2, 0) + "!" + next),
		Parsed({"1 id 1 error 0", nextParsed}));
}


TEST(TransactionParserTest, OtherSizeAndCount_AreNotRead)
{
	EXPECT_EQ(parse(wire_header(106, 1, 0, 8, 0xFFFFFFFF, 0xFFFF) + wire_param(101, "ab")),
		Parsed({"1 id 1 error 0 101:ab"}));
}


TEST(TransactionParserTest, SixteenMebibytes_AreTheMost)
{
	const uint32 limit = 16 * 1024 * 1024;
	TransactionParser parser;
	EXPECT_EQ(parse(parser, wire_header(106, 1, 0, limit, 2, 0), SIZE_MAX), Parsed());
	EXPECT_EQ(parser.BytesNeeded(), limit - 2);

	for (const uint32 size :
		{limit + 1, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFEAu, 0xFFFFFFECu, 0xFFFFFFFEu, 0xFFFFFFFFu}) {
		SCOPED_TRACE(size);
		EXPECT_EQ(parse(wire_header(106, 1, 0, size, 2, 0)), Parsed({"failed"}));
	}
}


TEST(TransactionParserTest, Reset_ForgetsHalfATransaction)
{
	TransactionParser parser;
	const std::string bytes = wire_transaction(106, 1, wire_param(101, std::string(1000, 'x')));
	for (const size_t size : std::initializer_list<size_t>{10, 22, 500}) {
		SCOPED_TRACE(size);
		EXPECT_EQ(parse(parser, bytes.substr(0, size), SIZE_MAX), Parsed());
		EXPECT_TRUE(parser.Reset());
		EXPECT_EQ(parse(parser, wire_transaction(355, 2, wire_param(101, "b")), SIZE_MAX),
			Parsed({"9 id 2 error 0 101:b"}));
	}
}
