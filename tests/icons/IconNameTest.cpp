/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "IconName.h"

#include <string>

#include <gtest/gtest.h>


TEST(IconNameTest, Number_IsReadFromTheBeginningOfTheName)
{
	EXPECT_EQ(1, IconNumber("1.png"));
	EXPECT_EQ(65535, IconNumber("65535.png"));
	EXPECT_EQ(12, IconNumber("012.png"));
	EXPECT_EQ(12, IconNumber("12abc.png"));
	EXPECT_EQ(20, IconNumber("20.x.png"));
	EXPECT_EQ(15, IconNumber("000000000000015.png"));
}


TEST(IconNameTest, WhatIsNoNumberInRange_IsNone)
{
	for (const char* name : {"", ".", "png", ".png", "abc.png", "x5.png", "0.png", "-3.png",
			 "65536.png", "4294967297.png", "999999999999999.png", "0000000000000016.png"})
		EXPECT_EQ(0, IconNumber(name)) << name;
	EXPECT_EQ(0, IconNumber((std::string(5000, '1') + ".png").c_str()));
}


TEST(IconNameTest, OtherEnding_IsNone)
{
	for (const char* name : {"7.PNG", "7.jpg", "7", "7png", "8.png.txt", "8.png ", "8.png."})
		EXPECT_EQ(0, IconNumber(name)) << name;
}
