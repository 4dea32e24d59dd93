/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransactionBuilder.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "HotlineProtocol.h"
#include "WireBytes.h"


/*!	The bytes behind the header, all pieces after one another. */
static std::string
params_of(const TransactionBuilder& builder)
{
	std::string bytes;
	for (int32 i = 0; i < builder.CountPieces(); i++) {
		const TransactionBuilder::Piece& piece = builder.PieceAt(i);
		bytes.append(static_cast<const char*>(piece.data), piece.size);
	}
	return bytes.substr(kHeaderSize);
}


static std::vector<size_t>
sizes_of(const TransactionBuilder& builder)
{
	std::vector<size_t> sizes;
	for (int32 i = 0; i < builder.CountPieces(); i++)
		sizes.push_back(builder.PieceAt(i).size);
	return sizes;
}


TEST(TransactionBuilderTest, NoParameters_IsAHeaderOfDataLength2)
{
	TransactionBuilder builder;
	EXPECT_EQ(builder.PieceAt(0).data, builder.Header());
	EXPECT_EQ(sizes_of(builder), std::vector<size_t>({22}));
	EXPECT_EQ(builder.DataLength(), 2u);
	EXPECT_EQ(builder.CountParams(), 0);
}


TEST(TransactionBuilderTest, BuiltParameters_AreOnePieceWithTheHeader)
{
	TransactionBuilder builder;
	EXPECT_TRUE(builder.BuildParamInt16(104, 0x8889));
	EXPECT_TRUE(builder.BuildParam(102, "Ann", 3));
	EXPECT_TRUE(builder.BuildParam(101, NULL, 0));

	EXPECT_EQ(wire_dump(params_of(builder)),
		wire_dump(wire_param(104, wire16(0x8889)) + wire_param(102, "Ann") + wire_param(101, "")));
	EXPECT_EQ(sizes_of(builder), std::vector<size_t>({22 + 6 + 7 + 4}));
	EXPECT_EQ(builder.DataLength(), 2u + 6 + 7 + 4);
	EXPECT_EQ(builder.CountParams(), 3);
}


TEST(TransactionBuilderTest, BorrowedValue_IsAPieceWhereItStands)
{
	const std::string text(65535, 'x');
	TransactionBuilder builder;
	EXPECT_TRUE(builder.BorrowParam(101, text.data(), 65535));
	EXPECT_TRUE(builder.BuildParamInt16(104, 1));
	EXPECT_EQ(builder.PieceAt(1).data, text.data());
	EXPECT_EQ(sizes_of(builder), std::vector<size_t>({22 + 4, 65535, 6}));
	EXPECT_EQ(wire_dump(params_of(builder)),
		wire_dump(wire_param(101, text) + wire_param(104, wire16(1))));
	EXPECT_EQ(builder.DataLength(), 2u + 4 + 65535 + 6);
	EXPECT_EQ(builder.CountParams(), 2);
}


TEST(TransactionBuilderTest, EndedPiece_IsNotAddedTo)
{
	TransactionBuilder builder;
	builder.EndPiece();
	EXPECT_EQ(sizes_of(builder), std::vector<size_t>({22}));
	EXPECT_TRUE(builder.BorrowParam(201, "name", 4));
	EXPECT_EQ(sizes_of(builder), std::vector<size_t>({22, 4, 4}));
}


TEST(TransactionBuilderTest, WhatDoesNotFit_IsRefusedAndNotCounted)
{
	const std::string text(TransactionBuilder::kCapacity, 'x');
	const uint16 room = static_cast<uint16>(text.size() - kHeaderSize - kParamHeaderSize);
	TransactionBuilder builder;
	EXPECT_FALSE(builder.BuildParam(102, text.data(), static_cast<uint16>(room + 1)));
	EXPECT_EQ(builder.DataLength(), 2u);
	EXPECT_EQ(builder.CountParams(), 0);
	EXPECT_TRUE(builder.BuildParam(102, text.data(), room));
	EXPECT_FALSE(builder.BuildParam(101, NULL, 0));
	EXPECT_FALSE(builder.BuildParamInt16(104, 1));
	EXPECT_FALSE(builder.BorrowParam(101, "x", 1));
	EXPECT_EQ(wire_dump(params_of(builder)), wire_dump(wire_param(102, text.substr(0, room))));
	EXPECT_EQ(builder.CountParams(), 1);
}


TEST(TransactionBuilderTest, MoreThanSevenPieces_AreRefused)
{
	TransactionBuilder builder;
	builder.EndPiece();
	for (int i = 0; i < 3; i++)
		EXPECT_TRUE(builder.BorrowParam(101, "x", 1));
	EXPECT_FALSE(builder.BorrowParam(101, "x", 1));
	EXPECT_FALSE(builder.BuildParamInt16(104, 1));
	EXPECT_EQ(builder.CountPieces(), 7);
	EXPECT_EQ(builder.CountParams(), 3);
}
