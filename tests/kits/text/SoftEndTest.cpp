/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <iterator>
#include <memory>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "ModelText.h"


/*!	Paragraphs in a store whose lines are short; every change is compared with the plain model. */
class SoftEndTest : public testing::Test {
protected:
	SoftEndTest()
	{
		fLimit.joins = model_joins;
		fLimit.longestLine = 16;
		Empty();
	}

	void Empty()
	{
		fStore = std::make_unique<TextStore>(fLimit.joins, fLimit.longestLine);
		fBytes.clear();
	}

	void Append(const std::string& bytes) { Replace(fBytes.size(), 0, bytes); }

	void Replace(size_t offset, size_t removed, const std::string& bytes)
	{
		ASSERT_EQ(text_change_complaint(*fStore, fBytes, offset, removed, bytes, fLimit), "");
	}

	/*!	\return The lines with a "|" at soft ends and a "/" at others. */
	std::string Lines() const
	{
		std::string lines;
		for (int32 i = 0; i < fStore->CountLines(); i++) {
			lines += fBytes.substr(static_cast<size_t>(fStore->OffsetOf(i)),
				static_cast<size_t>(fStore->CountBytesOf(i)));
			if (i + 1 < fStore->CountLines())
				lines += fStore->EndsSoftly(i) ? "|" : "/";
		}
		return lines;
	}

	ModelText::Limit fLimit;
	std::string fBytes;
	std::unique_ptr<TextStore> fStore;
};


TEST_F(SoftEndTest, FullLine_EndsSoftlyOnlyWhenSomethingFollows)
{
	Append("0123456789abcdef");
	EXPECT_EQ(Lines(), "0123456789abcdef");
	Append("\n");
	EXPECT_EQ(Lines(), "0123456789abcdef/");
	Append("0123456789abcdefg");
	EXPECT_EQ(Lines(), "0123456789abcdef/0123456789abcdef|g");
	EXPECT_EQ(fStore->CountPositions(), 34);
}


TEST_F(SoftEndTest, Blank_IsPreferredInTheLastQuarter)
{
	Append("0123456789 b efgh");
	EXPECT_EQ(Lines(), "0123456789 b |efgh");
	Empty();
	Append("0123456789a bcdefgh");
	EXPECT_EQ(Lines(), "0123456789a bcde|fgh") << "too far ahead";
	Empty();
	Append("0123456789abcde\tf");
	EXPECT_EQ(Lines(), "0123456789abcde\t|f");
	Empty();
	Append("0123456789abcde\xcc\x81 f");
	EXPECT_EQ(Lines(), "0123456789abcd|e\xcc\x81 f") << "no mark is parted from its letter";
}


TEST_F(SoftEndTest, WhatIsJoined_StaysTogether_AsFarAsItHasRoom)
{
	Append("0123456789a\xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x91\xa7");
	EXPECT_EQ(Lines(), "0123456789a|\xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x91\xa7");
	Empty();
	std::string marks = "0123456e";
	for (int i = 0; i < 6; i++)
		marks += "\xcc\x81";
	Append(marks);
	EXPECT_EQ(fStore->CountLines(), 2);
	EXPECT_EQ(fStore->OffsetOf(1), 16) << "more than half of a line is not given up";
}


TEST_F(SoftEndTest, BytesThatCompleteACharacter_MayTakeASoftEndBack)
{
	const struct {
		std::string start;
		std::string more;
		std::string lines;
		std::string after;
	} cases[] = {
		// A paragraph separator needs no room, a mark goes with its letter.
		{"0123456789abcdef\xe2\x80", "\xa9", "0123456789abcdef|\xe2\x80", "0123456789abcdef/"},
		{"0123456789abcdef\xcc", "\x81", "0123456789abcdef|\xcc", "0123456789abcde|f\xcc\x81"},
		{"0123456789abcde\xc3", "\xa9", "0123456789abcde\xc3", "0123456789abcde|\xc3\xa9"},
	};
	for (const auto& entry : cases) {
		Empty();
		Append(entry.start);
		EXPECT_EQ(Lines(), entry.lines);
		Append(entry.more);
		EXPECT_EQ(Lines(), entry.after);
	}
}


TEST_F(SoftEndTest, Appending_LeavesEarlierSoftEndsAlone)
{
	Append("0123456789abcdef0123456789abcdef012");
	ASSERT_EQ(fStore->CountLines(), 3);
	EXPECT_EQ(fStore->Replace(fStore->CountBytes(), 0, "3", 1), 2);
	EXPECT_EQ(fStore->Replace(fStore->CountBytes(), 0, "\xcc", 1), 2);
	EXPECT_EQ(fStore->Replace(fStore->CountBytes(), 0, "\x81\n", 2), 2);
	EXPECT_EQ(fStore->CountLines(), 4);
}


TEST_F(SoftEndTest, ChangeWithinAParagraph_BeginsAtTheLineBeforeAtMost)
{
	Append("0123456789abcdef0123456789abcdef0123456789abcdef");
	EXPECT_EQ(fStore->Replace(40, 1, "x", 1), 2);
	EXPECT_EQ(fStore->Replace(32, 1, "x", 1), 1);
	EXPECT_EQ(fStore->Replace(0, 1, "x", 1), 0);
	EXPECT_EQ(fStore->CountLines(), 3);
}


TEST_F(SoftEndTest, Places_BelongToTheNextLine)
{
	Append("0123456789abcde \xc3\xa9 end");
	ASSERT_EQ(fStore->CountLines(), 2);
	EXPECT_EQ(fStore->LineAtOffset(16), 1);
	EXPECT_EQ(fStore->LineAtPosition(16), 1);
	EXPECT_EQ(fStore->PositionAt(16), 16);
	EXPECT_EQ(fStore->OffsetAt(17), 18);
	EXPECT_EQ(fStore->CountPositionsOf(0), 16);
	EXPECT_EQ(fStore->TextOfParagraph(1), u"0123456789abcde \u00e9 end");
}


TEST_F(SoftEndTest, Lines_AreOfAKilobyteUnlessToldOtherwise)
{
	TextStore store;
	const std::string word(5000, 'w');
	store.Replace(0, 0, word.data(), 5000);
	EXPECT_EQ(store.CountLines(), 5);
	EXPECT_EQ(store.CountBytesOf(0), 1024);
	EXPECT_EQ(text_store_complaint(store, word), "");
}


TEST_F(SoftEndTest, EveryCutOfALongParagraph_GivesTheSameStore)
{
	const std::string text = "words and\xe2\x80\x8d\xf0\x9f\x98\x80 more e\xcc\x81\xff\xf0"
							 "\x9f longer\xcc\x80words\xe2\x80\xa9 0123456789abcdef\r\nend";
	for (size_t first = 0; first <= text.size(); first++) {
		for (size_t second = first; second <= text.size(); second++) {
			Empty();
			Append(text.substr(0, first));
			Append(text.substr(first, second - first));
			Append(text.substr(second));
			ASSERT_EQ(fBytes, text);
		}
	}
}


TEST_F(SoftEndTest, RandomChanges_AlwaysFitTheModel)
{
	static const std::string kParts[] = {"a", "\n", "\r", "\r\n", "\xe2\x80\xa9", "\xe2\x80\x8d",
		"\xcc\x81", "\xc3\xa9", "\xf0\x9f\x98\x80", "\xff", "\xe2", "\x80", "\xa9", "\xcc", "\x8d",
		"words ", " ", "0123456789abcdef", "longer"};
	std::mt19937 random(2026);
	for (int step = 0; step < 20000 && !HasFatalFailure(); step++) {
		std::string added;
		for (uint32 i = random() % 4; i > 0; i--)
			added += kParts[random() % std::size(kParts)];
		const size_t offset = random() % 3 == 0 ? fBytes.size() : random() % (fBytes.size() + 1);
		const size_t removed = std::min<size_t>(random() % 5, fBytes.size() - offset);
		Replace(offset, removed, added);
		if (fBytes.size() > 200)
			Replace(random() % 100, 80, "");
	}
}
