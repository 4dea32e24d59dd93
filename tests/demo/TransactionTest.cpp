/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Transaction.h"

#include <gtest/gtest.h>

#include "RawClient.h"


using demo::Transaction;


static std::string
flatten(const Transaction& transaction)
{
	std::vector<uint8_t> bytes = transaction.Flatten();
	return {bytes.begin(), bytes.end()};
}


// What is made of some bytes.
struct Request : public Transaction {
	explicit Request(const std::string& bytes)
		: result(
			Parse(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size(), this, &consumed))
	{
	}

	std::string Text(uint16_t field) const
	{
		std::string text = "none";
		FindText(field, &text);
		return text;
	}

	size_t consumed = 0;
	ParseResult result;
};


TEST(TransactionTest, NoFields_TwentyTwoBytes)
{
	Transaction notice(106);
	notice.SetId(7);

	EXPECT_EQ(flatten(notice),
		std::string("\x00\x00\x00\x6a"
					"\x00\x00\x00\x07"
					"\x00\x00\x00\x00"
					"\x00\x00\x00\x02"
					"\x00\x00\x00\x02"
					"\x00\x00",
			22));
}


TEST(TransactionTest, Fields_FollowWithIdAndLength)
{
	Transaction notice(301);
	notice.SetId(0x01020304);
	notice.AddInt16(103, 0x0506);
	notice.AddInt32(107, 0x0708090a);
	notice.AddText(102, "ab");

	EXPECT_EQ(flatten(notice),
		std::string("\x00\x00\x01\x2d"
					"\x01\x02\x03\x04"
					"\x00\x00\x00\x00"
					"\x00\x00\x00\x16"
					"\x00\x00\x00\x16"
					"\x00\x03"
					"\x00\x67\x00\x02\x05\x06"
					"\x00\x6b\x00\x04\x07\x08\x09\x0a"
					"\x00\x66\x00\x02"
					"ab",
			42));
}


TEST(TransactionTest, Reply_CarriesNoTypeButTheRequestsNumber)
{
	EXPECT_EQ(flatten(Transaction::Reply(9)), Message(0x00010000, 9, {}));
	EXPECT_EQ(flatten(Transaction::ErrorReply(9, "no")),
		Message(0x00010000, 9, {wire_param(100, "no")}, 1));
}


TEST(TransactionTest, TextOfMoreThanAField_CutBetweenCharacters)
{
	Transaction notice(106);
	notice.AddText(101, std::string(65534, 'a') + "é");

	std::string text;
	ASSERT_TRUE(notice.FindText(101, &text));
	EXPECT_EQ(text, std::string(65534, 'a'));
}


TEST(TransactionTest, ParsedMessage_GivesItsPartsBack)
{
	std::string bytes = Message(108, 5, {wire_param(103, wire16(12)), wire_param(101, "hello")});
	const Request request(bytes + "next");
	ASSERT_EQ(request.result, Transaction::kComplete);
	EXPECT_EQ(request.consumed, bytes.size());
	EXPECT_EQ(request.Type(), 108);
	EXPECT_EQ(request.Id(), 5u);
	EXPECT_FALSE(request.IsReply());
	EXPECT_EQ(request.CountFields(), 2);
	uint32_t socket = 0;
	EXPECT_TRUE(request.FindInt(103, &socket));
	EXPECT_EQ(socket, 12u);
	EXPECT_EQ(request.Text(101), "hello");
	EXPECT_EQ(request.Text(102), "none");
}


TEST(TransactionTest, CutAtEachByte_WaitsForTheRest)
{
	std::string bytes = Message(105, 1, {wire_param(101, "hello")});
	for (size_t size = 0; size < bytes.size(); size++) {
		SCOPED_TRACE(size);
		const Request request(bytes.substr(0, size));
		EXPECT_EQ(request.result, Transaction::kIncomplete);
		EXPECT_EQ(request.consumed, 0u);
	}
}


TEST(TransactionTest, AnnouncesTooMuch_KnownFromTheHeader)
{
	for (uint32_t size :
		std::initializer_list<uint32_t>{128 * 1024 - 19, 0x7fffffffu, 0xffffffffu, 0xffffffedu}) {
		SCOPED_TRACE(size);
		std::string header = wire32(105) + wire32(1) + wire32(0) + wire32(size) + wire32(size);
		EXPECT_EQ(Request(header).result, Transaction::kTooLarge);
	}
}


TEST(TransactionTest, NoRoomForTheNumberOfFields_HasNone)
{
	for (uint32_t size : {0u, 1u}) {
		SCOPED_TRACE(size);
		std::string bytes = wire32(300) + wire32(1) + wire32(0) + wire32(size) + wire32(size);
		const Request request(bytes + std::string(size, 'x'));
		EXPECT_EQ(request.result, Transaction::kComplete);
		EXPECT_EQ(request.consumed, 20 + size);
		EXPECT_EQ(request.CountFields(), 0);
	}
}


TEST(TransactionTest, FieldPastTheEnd_EndsTheWalk)
{
	std::string overlong = wire16(101) + wire16(6) + "hello";
	const Request request(Message(105, 1, {wire_param(102, "nick"), overlong}));
	ASSERT_EQ(request.result, Transaction::kComplete);
	EXPECT_EQ(request.Text(102), "nick");
	EXPECT_EQ(request.Text(101), "none");
}


TEST(TransactionTest, NumberOfOddLength_CountsAsMissing)
{
	for (size_t length : {0, 1, 3, 5}) {
		SCOPED_TRACE(length);
		Transaction notice(108);
		notice.AddText(103, std::string(length, '\x01'));
		uint32_t value = 0;
		EXPECT_FALSE(notice.FindInt(103, &value));
	}
}
