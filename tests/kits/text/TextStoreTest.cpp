/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TextStore.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ModelText.h"


/*!	A text in its store; every change is compared with the plain model. */
class TextStoreTest : public testing::Test {
protected:
	void Append(const std::string& bytes) { Replace(fBytes.size(), 0, bytes); }

	void Replace(size_t offset, size_t removed, const std::string& bytes)
	{
		ASSERT_EQ(text_change_complaint(fStore, fBytes, offset, removed, bytes), "");
	}

	std::string fBytes;
	TextStore fStore;
};

// All kinds of ends, some next to each other, a character of each length, and bytes that belong to
// none.
static const std::string kHardText
	= "a\r\n\xe2\x80\xa9\xf0\x9f\x98\x80\xff\r\r\n\n\xc3\xa9\xef\xb7\x90\xe2\x80";


TEST_F(TextStoreTest, Empty_HasOneLine)
{
	EXPECT_EQ(text_store_complaint(fStore, ""), "");
	EXPECT_EQ(fStore.CountLines(), 1);
	EXPECT_EQ(fStore.CountBytes(), 0);
	EXPECT_EQ(fStore.CountPositions(), 0);
	EXPECT_EQ(fStore.PositionAt(0), 0);
	EXPECT_EQ(fStore.OffsetAt(0), 0);
	EXPECT_EQ(fStore.LineAtOffset(0), 0);
	EXPECT_EQ(fStore.TextOf(0), u"");
	EXPECT_STREQ(fStore.Bytes(), "");
}


TEST_F(TextStoreTest, EndOfALine_BelongsToIt)
{
	Append("first\nsecond\n");
	EXPECT_EQ(fStore.LineAtOffset(5), 0);
	EXPECT_EQ(fStore.LineAtPosition(5), 0);
	EXPECT_EQ(fStore.LineAtOffset(6), 1);
	EXPECT_EQ(fStore.LineAtPosition(6), 1);
	EXPECT_EQ(fStore.LineAtOffset(13), 2) << "the end of the text";
	EXPECT_EQ(fStore.TextOf(1), u"second");
}


TEST_F(TextStoreTest, ReturnAndFeed_AreOnePosition)
{
	Append("a\r\nb");
	EXPECT_EQ(fStore.CountLines(), 2);
	EXPECT_EQ(fStore.CountBytesOf(0), 1);
	EXPECT_EQ(fStore.CountPositionsOf(0), 1);
	EXPECT_EQ(fStore.PositionAt(1), 1);
	EXPECT_EQ(fStore.PositionAt(2), 1);
	EXPECT_EQ(fStore.PositionAt(3), 2);
	EXPECT_EQ(fStore.OffsetAt(2), 3);
}


TEST_F(TextStoreTest, AppendedParts_AreLinesAndPositions)
{
	const struct {
		std::vector<std::string> parts;
		int32 lines;
		int32 positions;
		std::u16string last;
	} cases[] = {
		{{"a\r", "\nb"}, 2, 3, u"b"},
		{{"\r\r\r\n\n\n\r"}, 7, 6, u""},
		{{"caf\xc3", "\xa9 \xf0\x9f", "\x98", "\x80!"}, 1, 8, u"caf\u00e9 \U0001f600!"},
		{{"a\xf0\x9f", "z"}, 1, 4, u"a\xfffd\xfffdz"},
		// The halves of a surrogate pair, a separator, and two NULs.
		{{"\xed\xa0\xbd", "\xed\xb8\x80"}, 1, 6, u"\xfffd\xfffd\xfffd\xfffd\xfffd\xfffd"},
		{{"a\xe2\x80", "\xa9z"}, 2, 3, u"z"},
		{{std::string("a\0b\0", 4)}, 1, 4, std::u16string(u"a\0b\0", 4)},
	};
	for (const auto& entry : cases) {
		SCOPED_TRACE(entry.parts[0]);
		Replace(0, fBytes.size(), "");
		for (const std::string& part : entry.parts)
			Append(part);
		EXPECT_EQ(fStore.CountLines(), entry.lines);
		EXPECT_EQ(fStore.CountPositions(), entry.positions);
		EXPECT_EQ(fStore.TextOf(entry.lines - 1), entry.last);
	}
}


TEST_F(TextStoreTest, EachEnd_BeginsALine)
{
	for (const char* end : {"\n", "\r", "\r\n", "\xe2\x80\xa9"}) {
		SCOPED_TRACE(end);
		const int32 line = fStore.CountLines() - 1;
		const int32 positions = fStore.CountPositions();
		Append(std::string("x") + end);
		// Characters that are cut by an end are invalid.
		Append(std::string("\xf0\x9f\x98") + end + "\xe2\x80" + end);
		EXPECT_EQ(fStore.CountLines(), line + 4);
		EXPECT_EQ(fStore.CountPositions(), positions + 9);
		EXPECT_EQ(fStore.TextOf(line + 1), u"\xfffd\xfffd\xfffd");
		EXPECT_EQ(fStore.TextOf(line + 2), u"\xfffd\xfffd");
	}
}


TEST_F(TextStoreTest, OtherSeparators_StayInTheirLine)
{
	// Vertical tab, form feed, next line, line separator, and what a toolkit's document keeps for
	// itself.
	for (const char* other : {"\x0b", "\x0c", "\x1c", "\xc2\x85", "\xe2\x80\xa8", "\xef\xb7\x90",
			 "\xef\xb7\x91", "\xef\xbf\xbc"}) {
		const int32 positions = fStore.CountPositions();
		Append(std::string("a") + other + "z");
		EXPECT_EQ(fStore.CountLines(), 1);
		EXPECT_EQ(fStore.CountPositions(), positions + 3);
	}
}


TEST_F(TextStoreTest, CharacterBeyondTheBmp_IsTwoPositions)
{
	Append("a\xf0\x9f\x98\x80z");
	EXPECT_EQ(fStore.PositionAt(5), 3);
	EXPECT_EQ(fStore.OffsetAt(3), 5);
	EXPECT_EQ(fStore.OffsetAt(2), 1) << "between its halves";
	EXPECT_EQ(fStore.PositionAt(3), 1) << "within its bytes";
	EXPECT_EQ(fStore.TextOf(0), u"a\U0001f600z");
}


TEST_F(TextStoreTest, InvalidByte_IsOnePositionAndComesBack)
{
	for (const char* bytes : {"\xff", "\xc3", "\xe2\x80", "\xed\xa0\x80", "\xc0\xaf", "\xf8\x88",
			 "\xf4\x90\x80\x80", "\xf0\x80\x80\x80", "\xe0\x90\x80", "\x80\xbf"}) {
		SCOPED_TRACE(bytes);
		const int32 positions = fStore.CountPositions();
		Append(std::string(bytes) + "|\n");
		EXPECT_EQ(fStore.CountPositions(), positions + static_cast<int32>(strlen(bytes)) + 2);
		const std::u16string shown(strlen(bytes), char16_t(0xfffd));
		EXPECT_EQ(fStore.TextOf(fStore.CountLines() - 2), shown + u"|");
	}
}


TEST_F(TextStoreTest, ChangesWithinEndsAndCharacters_TakeThemApartAndJoinThem)
{
	const struct {
		const char* before;
		size_t offset;
		size_t removed;
		const char* added;
		int32 lines;
		int32 positions;
	} cases[] = {
		{"a\r\nb", 2, 0, "x", 3, 5},
		{"a\rx\nb", 2, 1, "", 2, 3},
		{"\r\rb", 2, 0, "\n", 3, 3},
		{"\r\r\nb", 1, 0, "\n", 3, 3},
		{"a\xe2\x80\xa9z\nend", 2, 1, "", 2, 8},
		{"a\xe2\xa9z\nend", 2, 0, "\x80", 3, 7},
		{"a\xf0\x9f\x98\x80z\nend", 3, 1, "", 2, 9},
		{"a\xf0\x9f\x80z\nend", 3, 0, "\x98", 2, 8},
		{"one\n\xfftwo\n", 0, 9, "", 1, 0},
		{"one\n\xfftwo\n", 0, 9, "other\n", 2, 6},
	};
	for (const auto& entry : cases) {
		SCOPED_TRACE(entry.before);
		Replace(0, fBytes.size(), entry.before);
		Replace(entry.offset, entry.removed, entry.added);
		EXPECT_EQ(fStore.CountLines(), entry.lines);
		EXPECT_EQ(fStore.CountPositions(), entry.positions);
	}
}


TEST_F(TextStoreTest, Appending_ChangesTheLastLineOnly_AndNothingIsNotLookedAt)
{
	Append("one\ntwo");
	EXPECT_EQ(fStore.Replace(7, 0, "!\nthree", 7), 1);
	EXPECT_EQ(fStore.Replace(14, 0, "\n", 1), 2);
	EXPECT_EQ(fStore.Replace(15, 0, "", 0), 3);
	// The line before ends with both now.
	EXPECT_EQ(fStore.Replace(15, 0, "\r", 1), 3);
	EXPECT_EQ(fStore.Replace(16, 0, "\n", 1), 3);
	EXPECT_EQ(fStore.Replace(17, 0, "\r", 1), 4);
	EXPECT_EQ(fStore.Replace(18, 0, "\n", 0), 5);
	EXPECT_EQ(fStore.Replace(18, 0, "x", 1), 5);
	EXPECT_EQ(text_store_complaint(fStore, "one\ntwo!\nthree\n\r\n\rx"), "");
}


TEST_F(TextStoreTest, Changing_BeginsAtTheLineOfTheChange)
{
	Append("one\ntwo\nthree\r\nfour\rfive");
	EXPECT_EQ(fStore.Replace(5, 1, "W", 1), 1);
	EXPECT_EQ(fStore.Replace(8, 0, "T", 1), 2);
	EXPECT_EQ(fStore.Replace(0, 1, "", 0), 0);
	EXPECT_EQ(fStore.Replace(15, 4, "4", 1), 3);
	// What stands behind a CR can be its other half.
	EXPECT_EQ(fStore.Replace(17, 4, "\n", 1), 3);
	EXPECT_EQ(text_store_complaint(fStore, "ne\ntWo\nTthree\r\n4\r\n"), "");
}


TEST_F(TextStoreTest, ManyLines_AreFoundAmongThem)
{
	std::string text;
	for (int i = 0; i < 3000; i++)
		text += "line " + std::to_string(i) + (i % 3 == 0 ? " \xf0\x9f\x98\x80\r\n" : "\n");
	for (size_t at = 0; at < text.size(); at += 97) {
		const std::string part = text.substr(at, 97);
		fStore.Replace(fStore.CountBytes(), 0, part.data(), static_cast<int32>(part.size()));
	}
	EXPECT_EQ(text_store_complaint(fStore, text), "");
	EXPECT_EQ(fStore.CountLines(), 3001);
	EXPECT_EQ(fStore.TextOf(2998), u"line 2998");
}


TEST_F(TextStoreTest, EveryCutOfAHardText_GivesTheSameStore)
{
	for (size_t first = 0; first <= kHardText.size(); first++) {
		for (size_t second = first; second <= kHardText.size(); second++) {
			Replace(0, fBytes.size(), "");
			Append(kHardText.substr(0, first));
			Append(kHardText.substr(first, second - first));
			Append(kHardText.substr(second));
			ASSERT_EQ(fBytes, kHardText);
		}
	}
}


TEST_F(TextStoreTest, EveryPartOfAHardTextReplaced_FitsTheModel)
{
	for (const char* added : {"", "\n", "\r", "\x80", "\xe2\x80", "xyz"}) {
		for (size_t offset = 0; offset <= kHardText.size(); offset++) {
			for (size_t removed = 0; offset + removed <= kHardText.size(); removed++) {
				Replace(0, fBytes.size(), kHardText);
				Replace(offset, removed, added);
			}
		}
	}
}


TEST_F(TextStoreTest, GoneThroughALine_PlacesAreTheSame)
{
	Append("first\r\nplain\n" + kHardText + kHardText);
	for (int32 i = 0; i < fStore.CountLines(); i++) {
		SCOPED_TRACE(i);
		const int32 start = fStore.OffsetOf(i);
		// With the end of the line.
		const int32 end = i + 1 < fStore.CountLines() ? fStore.OffsetOf(i + 1)
													  : fStore.CountBytes() + 1;
		for (const int32 step : {1, 2, 5}) {
			TextStore::Place place = {start, fStore.PositionOf(i)};
			for (int32 offset = start; offset < end; offset += step) {
				place = fStore.PlaceAt(i, place, offset);
				EXPECT_EQ(place.position, fStore.PositionAt(offset)) << offset;
				EXPECT_EQ(place.offset, fStore.OffsetAt(place.position)) << offset;
			}
		}
	}
}


TEST_F(TextStoreTest, RandomChanges_AlwaysFitTheModel)
{
	static const std::string kParts[] = {"a", "\n", "\r", "\r\n", "\xe2\x80\xa9", "\xef\xb7\x90",
		"\xed\xa0\xbd", "\xed\xb8\x80", "\xc3\xa9", "\xf0\x9f\x98\x80", "\xff", "\xe2", "\x80",
		"\xa9", "words "};
	std::mt19937 random(2026);
	for (int step = 0; step < 4000 && !HasFatalFailure(); step++) {
		std::string added;
		for (uint32 i = random() % 4; i > 0; i--)
			added += kParts[random() % std::size(kParts)];
		// The end is where most changes are.
		const size_t offset = random() % 3 == 0 ? fBytes.size() : random() % (fBytes.size() + 1);
		const size_t removed = std::min<size_t>(random() % 5, fBytes.size() - offset);
		Replace(offset, removed, added);
		if (fBytes.size() > 150)
			Replace(random() % 100, 50, "");
	}
}
