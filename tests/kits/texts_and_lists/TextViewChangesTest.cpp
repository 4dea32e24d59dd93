/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// A text that changes while it is seen, selected and read.
#include <TextView.h>

#include <string>

#include <gtest/gtest.h>

#include <Font.h>

#include "ExpectSoon.h"
#include "ScreenReader.h"
#include "Transcript.h"
#include "UserInput.h"


static const rgb_color kRed = {200, 0, 0, 255};


class TextViewChangesTest : public Transcript {
protected:
	void Append(const std::string& bytes)
	{
		fText->Insert(fText->TextLength(), bytes.data(), static_cast<int32>(bytes.size()));
	}
};


TEST_F(TextViewChangesTest, SmallerStyleInTheFirstSeenLine_LeavesItsLastRows)
{
	BFont large;
	large.SetSize(40);
	fText->SetFontAndColor(&large, B_FONT_ALL, &kRed);
	std::string line;
	for (int i = 0; i < 100; i++)
		line += "words ";
	Append(line);
	fText->ScrollToOffset(fText->TextLength());
	EXPECT_TRUE(WaitUntilShown());
	ASSERT_LT(fText->PointAt(0).y, 0);

	fText->SetFontAndColor(0, fText->TextLength(), be_plain_font, B_FONT_ALL, &kRed);
	// Before the next frame and after it.
	static_cast<void>(picture_of(fText));
	EXPECT_TRUE(fText->Bounds().Contains(fText->PointAt(fText->TextLength())));
	EXPECT_TRUE(WaitUntilShown());
	EXPECT_TRUE(fText->Bounds().Contains(fText->PointAt(fText->TextLength())));
}


TEST_F(TextViewChangesTest, AppendedBetweenTwoSteps_TheCaretKeepsItsColumn)
{
	Append("wide line\nx\nwide line\n");
	fText->Select(6, 6);
	press_key(fText, kKeyDown);
	EXPECT_EQ(Selection(), "11..11");
	Append("news\n");
	press_key(fText, kKeyDown);
	EXPECT_EQ(Selection(), "18..18");
}


TEST_F(TextViewChangesTest, CharacterCompleted_IsNotSelectedByHalf)
{
	// As three replacements, each of which is a position.
	Append("a\xf0\x9f\x98");
	fText->Select(0, 2);
	Append("\x80");
	EXPECT_EQ(Selection(), "0..1");
	EXPECT_EQ(ScreenReader(fText).Caret(), 1);
}


TEST_F(TextViewChangesTest, LineOfManyColors_IsShownWithTheFrame)
{
	// Nothing ends the line. A server may send such a chat, whose frames are not to take longer
	// with every message.
	const rgb_color green = {0, 128, 0, 255};
	std::string all;
	for (int i = 0; i < 2000; i++) {
		const std::string piece = "W\xc3\xb6rter ohne Ende, ";
		fText->SetFontAndColor(be_plain_font, B_FONT_ALL, i % 2 == 0 ? &kRed : &green);
		Append(piece);
		all += piece;
	}
	fText->ScrollToOffset(fText->TextLength());
	EXPECT_TRUE(WaitUntilShown());
	EXPECT_EQ(fText->Text(), all);
	// Each piece has a character of two bytes.
	const int32 last = static_cast<int32>(all.size()) - 3;
	EXPECT_NE(accessible_attributes(fText, last - 2000).find("color:rgb(0,128,0)"),
		std::string::npos);
}


TEST_F(TextViewChangesTest, ResizedInManySteps_TheSameRowIsAtTheTop)
{
	std::string line;
	for (int i = 0; i < 400; i++)
		line += "some words ";
	fText->SetText(line.c_str());
	const int32 middle = static_cast<int32>(line.size()) / 2;
	fText->ScrollToOffset(middle);
	const float width = fText->Bounds().Width();
	const float place = fText->PointAt(middle).y;
	for (const float change : {-15, -33, -61, -44, -20, -7, 12, 25, 0}) {
		fWindow->ResizeTo(300 + change, 150);
		ASSERT_SOON(fText->Bounds().Width() == width + change);
	}
	EXPECT_EQ(fText->PointAt(middle).y, place);
}


TEST_F(TextViewChangesTest, WrappedAtTheEnd_TheEndStaysInView)
{
	fText->SetWordWrap(false);
	for (int i = 0; i < 100; i++)
		Append("a line that does not fit into a window of this size without being wrapped\n");
	fText->ScrollToOffset(fText->TextLength());
	EXPECT_TRUE(WaitUntilShown());
	fText->SetWordWrap(true);
	EXPECT_TRUE(fText->Bounds().Contains(fText->PointAt(fText->TextLength())));
}
