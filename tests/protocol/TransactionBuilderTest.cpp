/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransactionBuilder.h"

#include <gtest/gtest.h>
#include <string>

#include "HotlineProtocol.h"
#include "WireBytes.h"


class TransactionBuilderTest : public testing::Test {
public:
	TransactionBuilderTest()
	{
		for (uint8& byte : buffer)
			byte = 0xEE;
	}

	std::string Bytes(size_t from, size_t to) const
	{
		return std::string(reinterpret_cast<const char*>(buffer) + from, to - from);
	}

	uint8 buffer[64];
};


TEST_F(TransactionBuilderTest, NoParameters_IsAHeaderOfDataLength2)
{
	const TransactionBuilder builder(buffer, kHeaderSize);
	EXPECT_EQ(builder.Size(), 22u);
	EXPECT_EQ(builder.DataLength(), 2u);
	EXPECT_EQ(builder.CountParams(), 0);
}


TEST_F(TransactionBuilderTest, Parameters_FollowOneAnother)
{
	TransactionBuilder builder(buffer, sizeof(buffer));
	EXPECT_TRUE(builder.BuildParamInt16(104, 0x8889));
	EXPECT_TRUE(builder.BuildParamInt32(108, 0xFEDCBA98));
	EXPECT_TRUE(builder.BuildParam(102, "Ann", 3));
	EXPECT_TRUE(builder.BuildParam(101, NULL, 0));

	EXPECT_EQ(wire_dump(Bytes(22, builder.Size())),
		wire_dump(wire_param(104, wire16(0x8889)) + wire_param(108, wire32(0xFEDCBA98))
			+ wire_param(102, "Ann") + wire_param(101, "")));
	EXPECT_EQ(builder.DataLength(), 2u + 6 + 8 + 7 + 4);
	EXPECT_EQ(builder.CountParams(), 4);
}


TEST_F(TransactionBuilderTest, AnnouncedValue_CountsButStandsElsewhere)
{
	TransactionBuilder builder(buffer, sizeof(buffer));
	EXPECT_TRUE(builder.BuildParamHeader(101, 65535));
	EXPECT_EQ(wire_dump(Bytes(22, builder.Size())), wire_dump(wire16(101) + wire16(65535)));
	EXPECT_EQ(builder.DataLength(), 2u + 4 + 65535);
	EXPECT_EQ(builder.CountParams(), 1);
}


TEST_F(TransactionBuilderTest, WhatDoesNotFit_IsRefusedAndNotCounted)
{
	for (size_t size = kHeaderSize; size < kHeaderSize + 7; size++) {
		SCOPED_TRACE(size);
		TransactionBuilder builder(buffer, size);
		EXPECT_FALSE(builder.BuildParam(102, "Ann", 3));
		EXPECT_EQ(builder.Size(), 22u);
		EXPECT_EQ(builder.DataLength(), 2u);
		EXPECT_EQ(builder.CountParams(), 0);
	}
	EXPECT_EQ(Bytes(22, 29), std::string(7, '\xEE'));

	TransactionBuilder builder(buffer, kHeaderSize + 7);
	EXPECT_TRUE(builder.BuildParam(102, "Ann", 3));
	EXPECT_FALSE(builder.BuildParamHeader(101, 0));
	EXPECT_FALSE(builder.BuildParamInt16(104, 1));
	EXPECT_FALSE(builder.BuildParamInt32(108, 1));
	EXPECT_EQ(Bytes(29, 64), std::string(35, '\xEE'));
}


TEST(TransactionPiecesTest, Pieces_StayInTheirOrder)
{
	const char first[] = "ab";
	const char second[] = "cde";
	TransactionPieces pieces(first, 2);
	pieces.Add(second, 3);
	ASSERT_EQ(pieces.CountPieces(), 2);
	EXPECT_EQ(pieces.DataAt(0), first);
	EXPECT_EQ(pieces.SizeAt(0), 2u);
	EXPECT_EQ(pieces.DataAt(1), second);
	EXPECT_EQ(pieces.SizeAt(1), 3u);
}
