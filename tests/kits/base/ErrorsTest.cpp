/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Errors.h>

#include <type_traits>

#include <gtest/gtest.h>

#include <String.h>


template<typename Code>
static constexpr bool
is_int(Code)
{
	return std::is_same_v<Code, int>;
}


TEST(ErrorsTest, Codes_ArePlainIntegers)
{
	EXPECT_TRUE(is_int(B_OK));
	EXPECT_TRUE(is_int(B_ERROR));
	EXPECT_TRUE(is_int(B_BAD_VALUE));
	EXPECT_TRUE(is_int(B_FILE_ERROR));
	EXPECT_STREQ("-1", (BString() << B_ERROR).String());
}


TEST(ErrorsTest, Codes_StandWhereTheirKitBegins)
{
	EXPECT_EQ(INT_MIN, B_NO_MEMORY);
	EXPECT_EQ(INT_MIN + 16, B_BAD_DATA);
	EXPECT_EQ(INT_MIN + 0x1200, B_BAD_PORT_ID);
	EXPECT_EQ(INT_MIN + 0x6003, B_ENTRY_NOT_FOUND);
	EXPECT_LT(B_ENTRY_NOT_FOUND, B_OK);
}
