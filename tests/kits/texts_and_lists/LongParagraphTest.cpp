/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <memory>
#include <string>

#include "ExpectSoon.h"
#include "ScreenReader.h"
#include "Transcript.h"
#include "UserInput.h"


// A paragraph is laid out in lines of a kilobyte. Nobody but the eye is to know.


// Where the first line of a paragraph ends if there is no blank before.
static const int32 kLineLength = 1024;

static const std::string kKhmer = "\xe1\x9e\x80\xe1\x9f\x92\xe1\x9e\x9a\xe1\x9e\xbb\xe1\x9e\x84";


static std::string
repeated(const std::string& text, size_t bytes)
{
	std::string result;
	while (result.size() + text.size() <= bytes)
		result += text;
	return result;
}


static std::string
range(int32 start, int32 end)
{
	return std::to_string(start) + ".." + std::to_string(end);
}


class LongParagraphTest : public Transcript {
protected:
	void SetUp() override
	{
		Transcript::SetUp();
		fReader = std::make_unique<ScreenReader>(fText);
	}

	void TearDown() override
	{
		fReader.reset();
		Transcript::TearDown();
	}

	/*!	Has a letter without a blank around it stand at the first soft end. */
	void AppendWord() { Append("word " + std::string(3000, 'w') + " end\nnext"); }

	bool StandsOnARowOfItsOwn(int32 offset)
	{
		fText->ScrollToOffset(offset);
		fText->ScrollToOffset(offset - 1);
		return fText->PointAt(offset).y > fText->PointAt(offset - 1).y
			&& fText->PointAt(offset).x < fText->PointAt(offset - 1).x;
	}

	std::unique_ptr<ScreenReader> fReader;
};


TEST_F(LongParagraphTest, OfIt_NoMoreIsLaidOutThanAFewLines)
{
	for (const std::string& text : {repeated(kKhmer, 65535), std::string(65535, 'w'),
			 repeated("\xee\x84\xa3", 65535), repeated("\xd9\x85\xd8\xb1 ", 65535)}) {
		SCOPED_TRACE(text.substr(0, 8));
		for (int i = 0; i < 5; i++)
			fText->Insert(fText->TextLength(), text.data(), static_cast<int32>(text.size()));
		fText->ScrollToOffset(fText->TextLength());
		ASSERT_TRUE(WaitUntilShown());
		// The view has room for less than ten rows, of less than a hundred letters each.
		EXPECT_GT(laid_out_units(fText), 0);
		EXPECT_LE(laid_out_units(fText), 3 * kLineLength);
		scroll_to_top(fText);
		EXPECT_LE(laid_out_units(fText), 6 * kLineLength);
	}
}


TEST_F(LongParagraphTest, SoftEnd_BeginsARowAndIsNoCharacter)
{
	AppendWord();
	EXPECT_TRUE(StandsOnARowOfItsOwn(kLineLength));
	EXPECT_EQ(fReader->CountCharacters(), fText->TextLength());
	EXPECT_EQ(fReader->Text(kLineLength - 2, kLineLength + 2), "wwww");
}


TEST_F(LongParagraphTest, WithoutWrapping_ItGoesOnInAnotherRow)
{
	fText->SetWordWrap(false);
	AppendWord();
	EXPECT_EQ(fText->PointAt(kLineLength - 1).y, fText->PointAt(0).y);
	EXPECT_TRUE(StandsOnARowOfItsOwn(kLineLength));
}


TEST_F(LongParagraphTest, SoftEnd_StandsBehindABlank_AndPartsNoSyllable)
{
	Append(repeated("harbor ", 2000));
	const int32 blank = kLineLength / 7 * 7;
	EXPECT_TRUE(StandsOnARowOfItsOwn(blank));
	fText->SetText((" " + repeated(kKhmer, 3000)).c_str());
	for (int32 end = kLineLength - 15; end <= kLineLength; end++) {
		const std::string before(fText->Text() + 1, static_cast<size_t>(end - 1));
		// In the middle of a syllable nobody finds a place for the caret.
		if (before.size() % kKhmer.size() != 0 && before.size() % kKhmer.size() != 12) {
			EXPECT_FALSE(StandsOnARowOfItsOwn(end)) << end;
		}
	}
}


TEST_F(LongParagraphTest, Copied_ItIsAsItWas)
{
	const std::string text = repeated(kKhmer + " ", 5000) + "\nnext\n" + repeated("w", 3000);
	Append(text);
	Press('A', B_COMMAND_KEY);
	EXPECT_EQ(Selection(), range(0, fText->TextLength()));
	Press('C', B_COMMAND_KEY);
	EXPECT_EQ(clipboard(), text);
	EXPECT_EQ(std::string(fText->Text()), text);
}


TEST_F(LongParagraphTest, ThreeClicks_SelectAllOfIt_TwoTheWholeWord)
{
	AppendWord();
	fText->ScrollToOffset(kLineLength);
	ASSERT_TRUE(IsSeen(kLineLength + 2));
	const BPoint where = Before(kLineLength + 2);
	double_click(fText, where);
	EXPECT_EQ(Selection(), range(5, 3005));
	press_mouse(fText, where);
	release_mouse(fText, where);
	EXPECT_EQ(Selection(), range(0, 3010)) << "with its end";
}


TEST_F(LongParagraphTest, LeftAndRight_GoAcrossByCharactersAndWords)
{
	AppendWord();
	SelectAt(kLineLength - 1);
	for (const int32 offset : {kLineLength, kLineLength + 1})
		EXPECT_EQ(Press(B_RIGHT_ARROW), range(offset, offset));
	for (const int32 offset : {kLineLength, kLineLength - 1})
		EXPECT_EQ(Press(B_LEFT_ARROW), range(offset, offset));
	EXPECT_EQ(Press(B_RIGHT_ARROW, B_COMMAND_KEY), range(3006, 3006));
	EXPECT_EQ(Press(B_LEFT_ARROW, B_COMMAND_KEY), range(5, 5));

	// A character that takes more than one position.
	fText->SetText((std::string(1020, 'w') + "\xf0\x9f\x98\x80" + std::string(50, 'w')).c_str());
	SelectAt(1024);
	EXPECT_EQ(Press(B_LEFT_ARROW), range(1020, 1020));
	EXPECT_EQ(Press(B_RIGHT_ARROW), range(1024, 1024));
}


TEST_F(LongParagraphTest, UpAndDown_GoRowByRow_AndComeBack)
{
	AppendWord();
	// At the end of a row, which the last one before a soft end is too short for.
	SelectAt(kLineLength + 1);
	Press(B_END);
	for (int rows = 0; rows < 10; rows++)
		Press(B_DOWN_ARROW);
	std::string last;
	int steps = 0;
	for (std::string at = Selection(); at != last && steps < 100; steps++) {
		last = at;
		at = Press(B_UP_ARROW);
	}
	int32 start;
	int32 end;
	fText->GetSelection(&start, &end);
	EXPECT_LT(start, 100) << "the first row";
	EXPECT_EQ(fText->PointAt(start).y, fText->PointAt(0).y);
}


TEST_F(LongParagraphTest, HomeAndEnd_StayOnTheirRow)
{
	AppendWord();
	fText->ScrollToOffset(kLineLength - 2);
	SelectAt(kLineLength - 2);
	const float row = fText->PointAt(kLineLength - 2).y;
	EXPECT_EQ(Press(B_END), range(kLineLength - 1, kLineLength - 1));
	EXPECT_EQ(fText->PointAt(kLineLength - 1).y, row);
	Press(B_HOME);
	Press(B_END, B_SHIFT_KEY);
	SelectAt(kLineLength + 2);
	EXPECT_EQ(Press(B_HOME), range(kLineLength, kLineLength));
}


TEST_F(LongParagraphTest, ClickBesideTheLastRowBeforeASoftEnd_LeavesTheCaretThere)
{
	AppendWord();
	fText->ScrollToOffset(kLineLength - 1);
	const BPoint last = fText->PointAt(kLineLength - 1);
	click(fText, BPoint(fText->Bounds().right - 1, last.y + 5));
	EXPECT_EQ(Selection(), range(kLineLength - 1, kLineLength - 1));
}


TEST_F(LongParagraphTest, ReadByPart_SoftEndsAreNotHeard)
{
	AppendWord();
	for (const int offset : {0, kLineLength - 1, kLineLength, 3009}) {
		SCOPED_TRACE(offset);
		EXPECT_EQ(fReader->At(offset, kReadParagraph),
			"0..3010 word " + std::string(3000, 'w') + " end\n");
		EXPECT_EQ(fReader->After(offset, kReadParagraph), "3010..3014 next");
	}
	EXPECT_EQ(fReader->At(kLineLength, kReadWord), "5..3005 " + std::string(3000, 'w'));
	EXPECT_EQ(fReader->At(kLineLength, kReadCharacter), range(kLineLength, kLineLength + 1) + " w");
	EXPECT_EQ(fReader->Before(kLineLength, kReadCharacter),
		range(kLineLength - 1, kLineLength) + " w");

	// Rows follow one another.
	int32 offset = 0;
	int rows = 0;
	while (offset < 3010 && rows < 1000) {
		const std::string row = fReader->At(offset, kReadRow);
		ASSERT_EQ(row.substr(0, row.find("..")), std::to_string(offset));
		const int32 next = static_cast<int32>(std::stol(row.substr(row.find("..") + 2)));
		ASSERT_GT(next, offset);
		offset = next;
		rows++;
	}
	EXPECT_EQ(offset, 3010);
}


TEST_F(LongParagraphTest, Appended_IsHeardAsItCame)
{
	Append("start ");
	fReader->Heard();
	const std::string text(2000, 'w');
	Append(text);
	EXPECT_EQ(fReader->Heard(), std::vector<std::string>({"inserted 6 " + text}));
}


TEST_F(LongParagraphTest, ReadFromRightToLeft_ItIsSoToItsEnd)
{
	const std::string hebrew = repeated("\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d ", 1024);
	const int32 start = static_cast<int32>(hebrew.size());
	Append(hebrew + "harbors \xd7\xa9 1200 \xd7\xa9\xd7\x9c");
	EXPECT_GT(fText->PointAt(start).y, fText->PointAt(start - 1).y);
	// What is written from left to right stands on the right of what follows.
	EXPECT_GT(fText->PointAt(start).x, fText->PointAt(start + 8).x);
	EXPECT_GT(fText->PointAt(start + 1).x, fText->PointAt(start).x);
	SelectAt(start + 8);
	EXPECT_EQ(Press(B_LEFT_ARROW), range(start + 10, start + 10));
}


TEST_F(LongParagraphTest, Selected_ItsColorIsThatOfTheSelectionOnly)
{
	AppendWord();
	fText->Select(kLineLength - 1, kLineLength + 1);
	Append(" more");
	EXPECT_EQ(Selection(), range(kLineLength - 1, kLineLength + 1));
	EXPECT_EQ(fReader->Selection(), range(kLineLength - 1, kLineLength + 1));
	EXPECT_EQ(fReader->Text(kLineLength - 1, kLineLength + 1), "ww");
}
