/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <memory>
#include <string>
#include <vector>

#include <Font.h>

#include "ExpectSoon.h"
#include "ScreenReader.h"
#include "Transcript.h"
#include "UserInput.h"


static const rgb_color kRed = {200, 0, 0, 255};
static const rgb_color kGreen = {0, 128, 0, 255};

typedef std::vector<std::string> Strings;


class AccessibleTextTest : public Transcript {
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

	/*!	\return What is read from the start to the end, part by part, each followed by a "|". */
	std::string ReadOn(text_boundary boundary)
	{
		std::string read;
		int position = 0;
		// No text here has as many parts.
		for (int i = 0; i < 100 && position < fReader->CountCharacters(); i++) {
			const std::string part = fReader->At(position, boundary);
			const size_t space = part.find(' ');
			const size_t dots = part.find("..");
			EXPECT_EQ(part.substr(0, dots), std::to_string(position));
			read += part.substr(space + 1) + "|";
			const std::string after = fReader->After(position, boundary);
			position = std::stoi(part.substr(dots + 2));
			EXPECT_EQ(after.substr(0, after.find("..")), std::to_string(position));
			if (position < fReader->CountCharacters()) {
				EXPECT_EQ(after, fReader->At(position, boundary));
			}
		}
		return read;
	}

	// What was told of all that has changed by now.
	Strings Heard()
	{
		fText->PointAt(0);
		return fReader->Heard();
	}

	std::unique_ptr<ScreenReader> fReader;
};


TEST_F(AccessibleTextTest, TextToRead_IsDescribedAndNoTrouble_WhenThereIsNone)
{
	EXPECT_EQ(fReader->CountCharacters(), 0);
	for (const int position : {-2, -1, 0, 1, 50}) {
		for (int boundary = kReadCharacter; boundary <= kReadAll; boundary++) {
			const text_boundary kind = text_boundary(boundary);
			EXPECT_EQ(fReader->Before(position, kind), "0..0 ") << position << " " << boundary;
			EXPECT_EQ(fReader->At(position, kind), "0..0 ") << position << " " << boundary;
			EXPECT_EQ(fReader->After(position, kind), "0..0 ") << position << " " << boundary;
		}
		EXPECT_EQ(fReader->Attributes(position), "0..0 ");
		EXPECT_TRUE(fText->Bounds().Contains(fReader->PlaceOf(position).LeftTop()));
		fReader->ScrollTo(position, position);
	}

	EXPECT_TRUE(fReader->IsText());
	const Accessible accessible = accessible_of(fText);
	EXPECT_TRUE(accessible.isReadOnly);
	EXPECT_TRUE(accessible.isMultiLine);
	EXPECT_TRUE(accessible.isFocusable);
	EXPECT_FALSE(accessible.isPassword);
	EXPECT_EQ(accessible.width, static_cast<int>(fText->Bounds().Width()) + 1);
}


TEST_F(AccessibleTextTest, Text_IsCutOutByPositions)
{
	// CR LF is one position, what is beyond the BMP two.
	Append("caf\xc3\xa9\r\n\xf0\x9f\x98\x80"
		   "\xff"
		   "z");
	EXPECT_EQ(fReader->CountCharacters(), 9);
	EXPECT_EQ(fReader->Text(0, 9),
		"caf\xc3\xa9\n\xf0\x9f\x98\x80"
		"\xef\xbf\xbd"
		"z");
	EXPECT_EQ(fReader->Text(3, 5), "\xc3\xa9\n");
	EXPECT_EQ(fReader->Text(5, 7), "\xf0\x9f\x98\x80");
	EXPECT_EQ(fReader->Text(8, 100), "z");
	EXPECT_EQ(fReader->Text(8, -1), "z");
	EXPECT_EQ(fReader->Text(6, 2), "");
	EXPECT_EQ(fReader->Text(50, 60), "");
}


TEST_F(AccessibleTextTest, PartsAndRows_FollowOneAnother)
{
	Append("Bob: hi, you! Well.\n\ne\xcc\x81 \xf0\x9f\x98\x80 end");
	EXPECT_EQ(ReadOn(kReadWord),
		"Bob|: |hi|, |you|! |Well|.|\n|\n|e\xcc\x81| \xf0\x9f\x98\x80 |end|");
	EXPECT_EQ(ReadOn(kReadSentence), "Bob: hi, you! |Well.|\n|\n|e\xcc\x81 \xf0\x9f\x98\x80 end|");
	EXPECT_EQ(ReadOn(kReadParagraph), "Bob: hi, you! Well.\n|\n|e\xcc\x81 \xf0\x9f\x98\x80 end|");
	EXPECT_EQ(ReadOn(kReadRow), ReadOn(kReadParagraph));
	EXPECT_EQ(ReadOn(kReadAll), "Bob: hi, you! Well.\n\ne\xcc\x81 \xf0\x9f\x98\x80 end|");
	EXPECT_EQ(ReadOn(kReadCharacter),
		"B|o|b|:| |h|i|,| |y|o|u|!| |W|e|l|l|.|\n|\n|e\xcc\x81| |\xf0\x9f\x98\x80| |e|n|d|");

	fText->SetText(
		"word word word word word word word word word word word word word word word word\nlast");
	std::string rows;
	for (int32 i = 0; i < fText->TextLength(); i++) {
		if (i > 0 && fText->PointAt(i).y != fText->PointAt(i - 1).y)
			rows += "|";
		rows += fText->Text()[i];
	}
	EXPECT_EQ(ReadOn(kReadRow), rows + "|");
	EXPECT_NE(rows.find(" |word"), std::string::npos);
}


TEST_F(AccessibleTextTest, PartsBesidePositions_IncludeTheEdges)
{
	Append("one two\nthree");
	EXPECT_EQ(fReader->Before(0, kReadWord), "0..0 ");
	EXPECT_EQ(fReader->Before(5, kReadWord), "3..4  ");
	EXPECT_EQ(fReader->At(5, kReadWord), "4..7 two");
	EXPECT_EQ(fReader->After(5, kReadWord), "7..8 \n");
	EXPECT_EQ(fReader->Before(9, kReadParagraph), "0..8 one two\n");
	EXPECT_EQ(fReader->After(2, kReadParagraph), "8..13 three");
	EXPECT_EQ(fReader->Before(13, kReadCharacter), "12..13 e");
	EXPECT_EQ(fReader->At(7, kReadCharacter), "7..8 \n");
	// Behind the last character nothing follows, nor behind the last line.
	for (const int position : {13, 14, 1000, -1}) {
		EXPECT_EQ(fReader->At(position, kReadCharacter), "13..13 ") << position;
		EXPECT_EQ(fReader->After(position, kReadCharacter), "13..13 ") << position;
		EXPECT_EQ(fReader->At(position, kReadParagraph), "8..13 three") << position;
		EXPECT_EQ(fReader->At(position, kReadRow), "8..13 three") << position;
		EXPECT_EQ(fReader->After(position, kReadParagraph), "13..13 ") << position;
	}
	EXPECT_EQ(fReader->After(9, kReadRow), "13..13 ");
	// -2 stands for the caret.
	SelectAt(5);
	EXPECT_EQ(fReader->At(-2, kReadWord), "4..7 two");
}


TEST_F(AccessibleTextTest, CaretAndSelection_AreTheUsers)
{
	Append("caf\xc3\xa9 and more");
	fText->Select(1, 5);
	EXPECT_EQ(fReader->Selection(), "1..4");
	EXPECT_EQ(fReader->Caret(), 4);
	fReader->SetCaret(6);
	EXPECT_EQ(Selection(), "7..7");
	EXPECT_EQ(fReader->Selection(), "");
	fReader->Select(3, 8);
	EXPECT_EQ(Selection(), "3..9");
	fReader->RemoveSelection();
	EXPECT_EQ(Selection(), "9..9");
	fReader->SetCaret(5000);
	EXPECT_EQ(fReader->Caret(), 13);
	fReader->Select(-7, 5000);
	EXPECT_EQ(Selection(), "0..14");
}


TEST_F(AccessibleTextTest, Attributes_AreThoseOfTheRun)
{
	fText->SetFontAndColor(be_bold_font, B_FONT_ALL, &kRed);
	Append("\xc3\xa9t\xc3\xa9: ");
	fText->SetFontAndColor(be_plain_font, B_FONT_ALL, &kGreen);
	Append("plain");
	for (const int position : {0, 4}) {
		const std::string red = fReader->Attributes(position);
		EXPECT_EQ(red.find("0..5 color:rgb(200,0,0);"), 0u) << red;
		EXPECT_NE(red.find("font-weight:bold"), std::string::npos) << red;
	}
	for (const int position : {5, 9, 10, -1, 99}) {
		const std::string green = fReader->Attributes(position);
		EXPECT_EQ(green.find("5..10 color:rgb(0,128,0);"), 0u) << green;
		EXPECT_EQ(green.find("font-weight:bold"), std::string::npos) << green;
	}
}


TEST_F(AccessibleTextTest, Places_AreWhereTheCharactersAre)
{
	Append("some words that are long enough to be wrapped in a view that is as narrow as this "
		   "one\n\nend");
	for (int i = 0; i < fReader->CountCharacters(); i++) {
		SCOPED_TRACE(i);
		const BRect place = fReader->PlaceOf(i);
		EXPECT_TRUE(fText->Bounds().Contains(place));
		EXPECT_EQ(place.LeftTop(), fText->PointAt(i));
		// At the end of a line there is nothing to point at.
		if (place.Width() > 0) {
			EXPECT_EQ(fReader->PositionAt(BPoint(place.left + 1, place.top + 5)), i);
		}
	}
}


TEST_F(AccessibleTextTest, PlacesInHebrew_AreOnTheLeftOfWhereTheyBegin_AndNoneOutside)
{
	Append("\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d");
	EXPECT_EQ(fReader->PositionAt(BPoint(-1, 10)), -1);
	EXPECT_EQ(fReader->PositionAt(BPoint(10, -5)), -1);
	EXPECT_EQ(fReader->PositionAt(BPoint(10, 500)), -1);
	for (int i = 0; i < 4; i++) {
		SCOPED_TRACE(i);
		const BRect place = fReader->PlaceOf(i);
		EXPECT_TRUE(fText->Bounds().Contains(place));
		EXPECT_EQ(place.right + 1, fText->PointAt(2 * i).x);
		EXPECT_EQ(place.left, fText->PointAt(2 * i + 2).x);
		EXPECT_EQ(fReader->PositionAt(BPoint(place.right, place.top + 5)), i);
	}
}


TEST_F(AccessibleTextTest, WhatAScreenReaderGoesTo_IsSeen)
{
	Append("line\n", 100);
	for (const int position : {400, 0, 250, 495, 30}) {
		fReader->ScrollTo(position, position + 4);
		EXPECT_TRUE(IsSeen(position)) << position;
		EXPECT_TRUE(fText->Bounds().Contains(fReader->PlaceOf(position))) << position;
	}
	// Of what does not fit the start is shown.
	fReader->ScrollTo(200, 400);
	EXPECT_TRUE(IsSeen(200));
	fReader->SetCaret(300);
	EXPECT_TRUE(IsSeen(300));
	fReader->Select(20, 22);
	EXPECT_TRUE(IsSeen(20));
}


// #pragma mark - what is announced


TEST_F(AccessibleTextTest, ChangedText_IsToldOnce)
{
	fText->Insert(0, "one\n", 4);
	fText->Insert(4, "caf\xc3\xa9\r\n", 7);
	EXPECT_SOON(fReader->CountCharacters() == 9);
	EXPECT_EQ(Heard(), Strings({"inserted 0 one\ncaf\xc3\xa9\n"}));
	fText->Insert(11, "more", 4);
	EXPECT_EQ(Heard(), Strings({"inserted 9 more"}));
	EXPECT_EQ(Heard(), Strings());
	fText->Insert(4, "two ", 4);
	EXPECT_EQ(Heard(), Strings({"inserted 4 two "}));

	fText->SetText("after\n");
	const Strings heard = Heard();
	ASSERT_GE(heard.size(), 2u);
	EXPECT_EQ(heard.front(), "removed 0 one\ntwo caf\xc3\xa9\nmore");
	EXPECT_EQ(heard.back(), "inserted 0 after\n");
}


TEST_F(AccessibleTextTest, CaretThatMoves_IsTold_ButNotOfWhatIsAppendedBehindIt)
{
	Append("some words");
	SelectAt(0);
	fReader->Heard();
	Press(B_RIGHT_ARROW);
	EXPECT_EQ(fReader->Heard(), Strings({"caret 1"}));
	Press(B_RIGHT_ARROW, B_COMMAND_KEY | B_SHIFT_KEY);
	EXPECT_EQ(fReader->Heard(), Strings({"selected 1..5"}));
	Press('A', B_COMMAND_KEY);
	EXPECT_EQ(fReader->Heard(), Strings({"selected 0..10"}));
	Press(B_LEFT_ARROW);
	EXPECT_EQ(fReader->Heard().back(), "caret 0");
	click(fText, Before(3));
	EXPECT_EQ(fReader->Heard().back(), "caret 3");
	double_click(fText, Before(6));
	EXPECT_EQ(fReader->Heard().back(), "selected 5..10");

	fText->Select(2, 4);
	fReader->Heard();
	Append(" more");
	EXPECT_EQ(fReader->Heard(), Strings({"inserted 10  more"}));
}


TEST_F(AccessibleTextTest, UnselectedByTheProgram_IsToldWithTheFrame_UnlessItIsSelectedAgain)
{
	Append("some words");
	{
		LockedWindow lock(fWindow);
		fText->Select(2, 4);
		fReader->Heard();
		fText->Select(2, 2);
		fText->Insert(10, " more", 5);
		fText->Select(2, 4);
	}
	ASSERT_TRUE(WaitUntilShown());
	EXPECT_EQ(fReader->Heard(), Strings({"inserted 10  more"}));
	{
		LockedWindow lock(fWindow);
		fText->Select(2, 2);
	}
	ASSERT_TRUE(WaitUntilShown());
	EXPECT_EQ(fReader->Heard(), Strings({"caret 2"}));
}
