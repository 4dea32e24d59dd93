/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ParameterWalker.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <String.h>

#include "HotlineProtocol.h"
#include "WireBytes.h"


// What a walk finds, in a copy of exactly the size: reading past it is seen under the address
// sanitizer.
static std::vector<std::string>
walk(const std::string& bytes)
{
	const std::unique_ptr<uint8[]> copy(new uint8[bytes.size()]);
	std::copy(bytes.begin(), bytes.end(), copy.get());

	std::vector<std::string> found;
	ParameterWalker walker(copy.get(), bytes.size());
	HotlineParam param;
	while (walker.Next(&param)) {
		const std::string value(reinterpret_cast<const char*>(param.data), param.len);
		found.push_back(std::to_string(param.type) + ":" + value);
	}
	return found;
}


typedef std::vector<std::string> Found;


TEST(ParameterWalkerTest, Nothing_HasNoParameters)
{
	EXPECT_EQ(walk(""), Found());
	ParameterWalker walker(NULL, 0);
	HotlineParam param;
	EXPECT_FALSE(walker.Next(&param));
}


TEST(ParameterWalkerTest, Parameters_ComeInTheirOrder)
{
	EXPECT_EQ(walk(wire_param(101, "hello") + wire_param(65535, "") + wire_param(101, "again")),
		Found({"101:hello", "65535:", "101:again"}));
}


TEST(ParameterWalkerTest, CutAtEachByte_GivesTheWholeOnes)
{
	const std::string bytes = wire_param(101, "ab") + wire_param(102, "") + wire_param(103, "c");
	const size_t ends[] = {6, 10, 15};
	const Found all = {"101:ab", "102:", "103:c"};
	for (size_t size = 0; size <= bytes.size(); size++) {
		SCOPED_TRACE(size);
		Found expected;
		for (size_t i = 0; i < all.size() && ends[i] <= size; i++)
			expected.push_back(all[i]);
		EXPECT_EQ(walk(bytes.substr(0, size)), expected);
	}
}


TEST(ParameterWalkerTest, LengthPastTheEnd_StopsBehindTheOnesBefore)
{
	for (const unsigned int length : {4u, 256u, 65535u}) {
		SCOPED_TRACE(length);
		EXPECT_EQ(walk(wire_param(101, "ab") + wire16(102) + wire16(length) + "abc"),
			Found({"101:ab"}));
	}
}


TEST(ParameterWalkerTest, LongestValue_IsWhole)
{
	const std::string value(65535, 'x');
	EXPECT_EQ(walk(wire_param(101, value)), Found({"101:" + value}));
}


// #pragma mark - Values


static HotlineParam
param_of(const std::string& value)
{
	HotlineParam param;
	param.type = 101;
	param.len = static_cast<uint16>(value.size());
	param.data = reinterpret_cast<const uint8*>(value.data());
	return param;
}


// What is read of the first bytes of a value, of none up to five.
template<typename Number>
static std::vector<Number>
read_cut(void (*read)(const HotlineParam&, Number*), Number before)
{
	const std::string bytes = "\x12\x34\x56\x78\x9A";
	std::vector<Number> numbers;
	for (size_t length = 0; length <= bytes.size(); length++) {
		const std::string value = bytes.substr(0, length);
		Number number = before;
		read(param_of(value), &number);
		numbers.push_back(number);
	}
	return numbers;
}


TEST(ParameterValueTest, UInt16_TakesTheFirstTwoBytesOfTwoOrMore)
{
	EXPECT_EQ(read_cut<uint16>(ReadParamUInt16, 7),
		(std::vector<uint16>{7, 7, 0x1234, 0x1234, 0x1234, 0x1234}));
}


TEST(ParameterValueTest, UInt32_TakesTheFirstFourBytesOfFourOrMore)
{
	EXPECT_EQ(read_cut<uint32>(ReadParamUInt32, 7),
		(std::vector<uint32>{7, 7, 7, 7, 0x12345678, 0x12345678}));
}


TEST(ParameterValueTest, Number_IsFourBytesOrElseTwo)
{
	EXPECT_EQ(read_cut<uint32>(ReadParamNumber, 0),
		(std::vector<uint32>{0, 0, 0x1234, 0x1234, 0x12345678, 0x12345678}));
}


TEST(ParameterValueTest, Text_KeepsItsBytes)
{
	for (const std::string text : {"", "a\rb", "<b>&amp;%s[*]&File", "\xFF\xFE\x80", "\x01\x1F"}) {
		SCOPED_TRACE(wire_dump(text));
		BString read("before");
		ReadParamText(param_of(text), &read);
		EXPECT_EQ(std::string(read.String()), text);
	}
}


TEST(ParameterValueTest, LimitedText_IsCutAtThatByte)
{
	const std::string text = std::string(62, 'x') + "\xC3\xA4yz";
	BString read;
	ReadParamText(param_of(text), 63, &read);
	EXPECT_EQ(std::string(read.String()), text.substr(0, 63));
	ReadParamText(param_of("short"), 63, &read);
	EXPECT_STREQ(read.String(), "short");
}
