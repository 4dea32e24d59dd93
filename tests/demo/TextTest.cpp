/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Text.h"

#include <gtest/gtest.h>


using namespace demo;


TEST(TextTest, CutInsideACharacter_LosesTheWholeCharacter)
{
	std::string text = "a\xe6\x9c\x88"
					   "b";
	EXPECT_EQ(cut_text(text, 5), text);
	EXPECT_EQ(cut_text(text, 4), "a\xe6\x9c\x88");
	EXPECT_EQ(cut_text(text, 3), "a");
	EXPECT_EQ(cut_text(text, 2), "a");
	EXPECT_EQ(cut_text(text, 1), "a");
	EXPECT_EQ(cut_text(text, 0), "");
}


TEST(TextTest, CutInWhatIsNoText_AtThatByte)
{
	EXPECT_EQ(cut_text(std::string(10, '\x80'), 7), std::string(7, '\x80'));
}


TEST(TextTest, Word_NotFoundInsideALongerOne)
{
	EXPECT_TRUE(contains_word("hi there", "hi"));
	EXPECT_TRUE(contains_word("oh, hi!", "hi"));
	EXPECT_TRUE(contains_word("this, hi", "hi"));
	EXPECT_FALSE(contains_word("this", "hi"));
	EXPECT_FALSE(contains_word("hint", "hi"));
	EXPECT_FALSE(contains_word("hi", ""));
	EXPECT_TRUE(contains_word("Ну привет!", "привет"));
}


TEST(TextTest, Line_SplitIntoWordAndRest)
{
	struct {
		const char* line;
		const char* word;
		const char* rest;
	} cases[] = {
		{"", "", ""},
		{"  ", "", ""},
		{"/help", "/help", ""},
		{" /help ", "/help", ""},
		{"/join  Dozing Otter ", "/join", "Dozing Otter"},
	};
	for (const auto& entry : cases) {
		SCOPED_TRACE(entry.line);
		std::string word = "before";
		std::string rest = "before";
		split_word(entry.line, &word, &rest);
		EXPECT_EQ(word, entry.word);
		EXPECT_EQ(rest, entry.rest);
	}
}


TEST(TextTest, Count_TakesDecimalNumbersUpToTheLimit)
{
	unsigned long count = 77;
	EXPECT_TRUE(parse_count("0", 10, &count));
	EXPECT_EQ(count, 0u);
	EXPECT_TRUE(parse_count("10", 10, &count));
	EXPECT_EQ(count, 10u);
	for (const char* bad : {"", "11", "-1", "+1", " 1", "1 ", "1x", "99999999999999999999999"}) {
		SCOPED_TRACE(bad);
		EXPECT_FALSE(parse_count(bad, 10, &count));
		EXPECT_EQ(count, 10u);
	}
}
