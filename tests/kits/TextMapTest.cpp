/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TextMap.h"

#include <cstring>
#include <random>

#include <gtest/gtest.h>

#include "ModelDocument.h"


namespace {

/*!	A text, its map and the document that follows it; every change is compared with the plain model. */
class TextMapTest : public testing::Test {
protected:
	TextMapTest()
		: fMap(&fDocument)
	{
	}

	void Append(const std::string& bytes) { Replace(int32(fBytes.size()), 0, bytes); }

	void Replace(int32 offset, int32 removed, const std::string& bytes)
	{
		fBytes.replace(size_t(offset), size_t(removed), bytes);
		ASSERT_TRUE(
			fDocument.Apply(fMap.Replace(offset, removed, bytes.data(), int32(bytes.size()))));
		ASSERT_EQ(text_map_complaint(fMap, fDocument, fBytes), "");
	}

	std::string fBytes;
	ModelDocument fDocument;
	TextMap fMap;
};

} // namespace


TEST_F(TextMapTest, Empty_HasOneBlock)
{
	EXPECT_EQ(fMap.CountBlocks(), 1);
	EXPECT_EQ(fMap.CountBytes(), 0);
	EXPECT_EQ(fMap.PositionAt(0), 0);
	EXPECT_EQ(fMap.OffsetAt(0), 0);
	EXPECT_EQ(fMap.Bytes(0, 0), "");
}


TEST_F(TextMapTest, PlainText_OffsetsArePositions)
{
	Append("first\nsecond\n");
	EXPECT_EQ(fMap.CountBlocks(), 3);
	EXPECT_EQ(fMap.PositionAt(8), 8);
	EXPECT_EQ(fMap.OffsetAt(8), 8);
}


TEST_F(TextMapTest, ReturnAndFeed_AreOnePosition)
{
	Append("a\r\nb");
	EXPECT_EQ(fMap.CountBlocks(), 2);
	EXPECT_EQ(fMap.PositionAt(1), 1);
	EXPECT_EQ(fMap.PositionAt(2), 1);
	EXPECT_EQ(fMap.PositionAt(3), 2);
	EXPECT_EQ(fMap.OffsetAt(2), 3);
}


TEST_F(TextMapTest, ReturnAndFeedInTwoParts_BecomeOnePosition)
{
	Append("a\r");
	EXPECT_EQ(fMap.CountPositions(), 2);
	Append("\nb");
	EXPECT_EQ(fMap.CountPositions(), 3);
	EXPECT_EQ(fMap.CountBlocks(), 2);
}


TEST_F(TextMapTest, EachEnd_BeginsABlock)
{
	for (const char* end : {"\n", "\r", "\r\n", "\xe2\x80\xa9", "\xef\xb7\x90", "\xef\xb7\x91"}) {
		const int32 blocks = fMap.CountBlocks();
		const int32 positions = fMap.CountPositions();
		Append(std::string("x") + end);
		Append("y");
		EXPECT_EQ(fMap.CountBlocks(), blocks + 1);
		EXPECT_EQ(fMap.CountPositions(), positions + 3);
	}
	EXPECT_EQ(fMap.CountRawBlocks(), 0);
}


TEST_F(TextMapTest, LineSeparator_StaysInItsBlock)
{
	Append("a\xe2\x80\xa8z");
	EXPECT_EQ(fMap.CountBlocks(), 1);
	EXPECT_EQ(fMap.CountPositions(), 3);
}


TEST_F(TextMapTest, CharacterBeyondTheBmp_IsTwoPositions)
{
	Append("a\xf0\x9f\x98\x80z");
	EXPECT_EQ(fMap.PositionAt(5), 3);
	EXPECT_EQ(fMap.OffsetAt(3), 5);
	EXPECT_EQ(fMap.OffsetAt(2), 1) << "between its halves";
	EXPECT_EQ(fMap.PositionAt(3), 1) << "within its bytes";
}


TEST_F(TextMapTest, InvalidByte_IsOnePositionAndComesBack)
{
	for (const char* bytes : {"\xff", "\xc3", "\xe2\x80", "\xed\xa0\x80", "\xc0\xaf", "\xf8\x88",
			 "\xf4\x90\x80\x80", "\xf0\x80\x80\x80", "\xe0\x90\x80", "\x80\xbf"}) {
		SCOPED_TRACE(bytes);
		const int32 positions = fMap.CountPositions();
		Append(std::string(bytes) + "|\n");
		EXPECT_EQ(fMap.CountPositions(), positions + int32(strlen(bytes)) + 2);
	}
	EXPECT_EQ(fMap.CountRawBlocks(), 10);
}


TEST_F(TextMapTest, RawBytes_AreKeptOnlyOfInvalidBlocks)
{
	Append("plain\nna\xc3\xafve\n");
	EXPECT_EQ(fMap.CountRawBlocks(), 0);
	Append("na\xefve\nplain\n");
	EXPECT_EQ(fMap.CountRawBlocks(), 1);
	Replace(15, 1, "\xc3\xaf");
	EXPECT_EQ(fMap.CountRawBlocks(), 0);
}


TEST_F(TextMapTest, CharacterInTwoParts_BecomesOne)
{
	Append("caf\xc3");
	EXPECT_EQ(fMap.CountRawBlocks(), 1);
	Append("\xa9 \xf0\x9f");
	EXPECT_EQ(fMap.CountRawBlocks(), 1);
	Append("\x98");
	Append("\x80!");
	EXPECT_EQ(fMap.CountRawBlocks(), 0);
	EXPECT_EQ(fMap.CountPositions(), 8);
}


TEST_F(TextMapTest, SeparatorInTwoParts_EndsTheBlock)
{
	Append("a\xe2\x80");
	Append("\xa9z");
	EXPECT_EQ(fMap.CountBlocks(), 2);
	EXPECT_EQ(fMap.CountRawBlocks(), 0);
}


TEST_F(TextMapTest, ChangeWithinReturnAndFeed_TakesThemApart)
{
	Append("a\r\nb");
	Replace(2, 0, "x");
	EXPECT_EQ(fMap.CountBlocks(), 3);
	Replace(2, 1, "");
	EXPECT_EQ(fMap.CountBlocks(), 2);
}


TEST_F(TextMapTest, FeedBroughtBehindAReturn_JoinsIt)
{
	Append("a\rx\nb");
	EXPECT_EQ(fMap.CountBlocks(), 3);
	Replace(2, 1, "");
	EXPECT_EQ(fMap.CountBlocks(), 2);
}


TEST_F(TextMapTest, EndTakenApart_JoinsTheBlocks)
{
	Append("a\xe2\x80\xa9z\nend");
	Replace(2, 1, "");
	EXPECT_EQ(fMap.CountBlocks(), 2);
	EXPECT_EQ(fMap.CountRawBlocks(), 1);
	Replace(2, 0, "\x80");
	EXPECT_EQ(fMap.CountBlocks(), 3);
	EXPECT_EQ(fMap.CountRawBlocks(), 0);
}


TEST_F(TextMapTest, OneLetterInserted_IsAnEditOfOneLetter)
{
	Append("first line\nsecond line\nthird line\n");
	const TextMap::Edit edit = fMap.Replace(14, 0, "X", 1);
	EXPECT_EQ(edit.position, 14);
	EXPECT_EQ(edit.removed, 0);
	EXPECT_EQ(edit.inserted, u"X");
}


TEST_F(TextMapTest, EditOfACharacterOfTwoPositions_TakesBothOfThem)
{
	// Only the second half of the pair differs.
	Append("a\xf0\x9f\x98\x80z\nend");
	const TextMap::Edit edit = fMap.Replace(4, 1, "\x81", 1);
	EXPECT_EQ(edit.position, 1);
	EXPECT_EQ(edit.removed, 2);
	EXPECT_EQ(edit.inserted, u"\U0001f601");
}


TEST_F(TextMapTest, EverythingReplaced_StartsAnew)
{
	Append("one\n\xfftwo\n");
	Replace(0, 9, "other");
	EXPECT_EQ(fMap.CountBlocks(), 1);
	EXPECT_EQ(fMap.CountRawBlocks(), 0);
	Replace(0, 5, "");
	EXPECT_EQ(fMap.CountBlocks(), 1);
}


TEST_F(TextMapTest, NulBytes_AreCharacters)
{
	Append(std::string("a\0b\0", 4));
	EXPECT_EQ(fMap.CountPositions(), 4);
}


TEST_F(TextMapTest, PartsOfTheBytes_ComeFromAnywhere)
{
	const std::string text = "one\r\ntw\xc3\xb6\n\xff!\xe2\x80\xa9"
							 "end";
	Append(text);
	for (size_t from = 0; from <= text.size(); from++) {
		for (size_t length = 0; from + length <= text.size(); length++)
			EXPECT_EQ(fMap.Bytes(int32(from), int32(length)), text.substr(from, length));
	}
}


TEST_F(TextMapTest, EveryCutOfAHardText_GivesTheSameMap)
{
	const std::string text
		= "a\r\n\xe2\x80\xa9\xf0\x9f\x98\x80\xff\r\r\n\n\xc3\xa9\xef\xb7\x90\xe2\x80";
	for (size_t first = 0; first <= text.size(); first++) {
		for (size_t second = first; second <= text.size(); second++) {
			Replace(0, int32(fBytes.size()), "");
			Append(text.substr(0, first));
			Append(text.substr(first, second - first));
			Append(text.substr(second));
			ASSERT_EQ(fBytes, text);
		}
	}
}


TEST_F(TextMapTest, RandomChanges_AlwaysFitTheModel)
{
	static const std::string kParts[] = {"a", "\n", "\r", "\r\n", "\xe2\x80\xa9", "\xef\xb7\x90",
		"\xef\xb7\x91", "\xc3\xa9", "\xf0\x9f\x98\x80", "\xff", "\xe2", "\x80", "\xa9", "words "};
	std::mt19937 random(2026);
	for (int step = 0; step < 4000 && !HasFatalFailure(); step++) {
		std::string added;
		for (uint32 i = random() % 4; i > 0; i--)
			added += kParts[random() % std::size(kParts)];
		const size_t offset = random() % (fBytes.size() + 1);
		const size_t removed = std::min<size_t>(random() % 5, fBytes.size() - offset);
		Replace(int32(offset), int32(removed), added);
		if (fBytes.size() > 150)
			Replace(int32(random() % 100), 50, "");
	}
}
