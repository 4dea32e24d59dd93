/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "PathValue.h"

#include <string>

#include <gtest/gtest.h>

#include "WireBytes.h"


static std::string
component(const std::string& name)
{
	return wire8(0) + wire8(0) + wire8(static_cast<unsigned int>(name.size() & 0xff)) + name;
}


static std::string
bytes_of(const PathValue& value)
{
	return std::string(reinterpret_cast<const char*>(value.Data()), value.Length());
}


TEST(PathValueTest, NoPath_HasNoValue)
{
	EXPECT_TRUE(PathValue(NULL).IsEmpty());
	EXPECT_TRUE(PathValue("").IsEmpty());
	EXPECT_EQ(PathValue("").Length(), 0);
}


TEST(PathValueTest, SlashesAlone_HaveAValueWithoutComponents)
{
	for (const char* path : {"/", "//", "/////"}) {
		SCOPED_TRACE(path);
		const PathValue value(path);
		EXPECT_FALSE(value.IsEmpty());
		EXPECT_EQ(bytes_of(value), wire16(0));
	}
}


TEST(PathValueTest, Components_WithoutTheSlashes)
{
	EXPECT_EQ(wire_dump(bytes_of(PathValue("a"))), wire_dump(wire16(1) + component("a")));
	EXPECT_EQ(wire_dump(bytes_of(PathValue("//a//bc/"))),
		wire_dump(wire16(2) + component("a") + component("bc")));
	EXPECT_EQ(PathValue("//a//bc/").Length(), 11);
	EXPECT_EQ(wire_dump(bytes_of(PathValue("\xFF %s/\xC3\xA4"))),
		wire_dump(wire16(2) + component("\xFF %s") + component("\xC3\xA4")));
}


TEST(PathValueTest, LongestComponent_IsOneByteShortOfTheBuffer)
{
	const std::string fits(512 - 2 - 3 - 1, 'f');
	EXPECT_EQ(bytes_of(PathValue(fits.c_str())), wire16(1) + component(fits));
	// Its length goes by its low eight bits.
	EXPECT_EQ(PathValue(fits.c_str()).Data()[4], fits.size() & 0xff);

	const std::string tooLong = fits + "f";
	EXPECT_EQ(bytes_of(PathValue(tooLong.c_str())), wire16(0));
}


TEST(PathValueTest, ComponentWithoutRoom_IsSkippedAndTheNextTried)
{
	const std::string big(500, 'b');
	EXPECT_EQ(bytes_of(PathValue(("a/" + big + "/" + big + "/c").c_str())),
		wire16(2) + component("a") + component(big));
	EXPECT_EQ(bytes_of(PathValue(("a/" + big + "1234567/c").c_str())),
		wire16(2) + component("a") + component("c"));
}


TEST(PathValueTest, FullToTheLastByte_TakesNoMore)
{
	// Leaves every remainder from 0 to 8 bytes.
	for (size_t left = 1; left <= 8; left++) {
		SCOPED_TRACE(left);
		const std::string first(512 - 2 - 3 - left, 'f');
		const std::string expected = left > 4 ? wire16(2) + component(first) + component("z")
											  : wire16(1) + component(first);
		EXPECT_EQ(bytes_of(PathValue((first + "/z").c_str())), expected);
	}
}


TEST(PathValueTest, ManyComponents_AreCountedInTwoBytes)
{
	std::string path;
	std::string expected;
	for (int i = 0; i < 300; i++)
		path += "/x";
	for (int i = 0; i < 127; i++)
		expected += component("x");
	EXPECT_EQ(bytes_of(PathValue(path.c_str())), wire16(127) + expected);
}
