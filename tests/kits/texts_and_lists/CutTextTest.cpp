/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <string>

#include <Font.h>
#include <String.h>
#include <StringView.h>

#include "ExpectSoon.h"
#include "ListViewFixture.h"
#include "UserInput.h"
#include "WindowInput.h"


static std::string
repeated(const std::string& part, size_t bytes)
{
	std::string text;
	while (text.size() + part.size() <= bytes)
		text += part;
	return text;
}


static std::string
truncated(const std::string& text, float width, uint32 mode = B_TRUNCATE_END)
{
	BString cut(text.c_str());
	be_plain_font->TruncateString(&cut, mode, width);
	return cut.String();
}


static const std::string kParts[] = {"i", "W", "words and ", "\u1780\u17d2\u179a\u17bb\u1784",
	"\U0001f600", "\u05e9\u05dc\u05d5\u05dd ", "\u4e16\u754c", "e\u0301", "\ue123"};


TEST(CutTextTest, VeryLongString_IsCutAsALongOneIs)
{
	for (const std::string& part : kParts) {
		SCOPED_TRACE(part);
		const std::string text = repeated(part, 65535);
		// More than there is room for, but all of it was always looked at.
		const std::string shorter = repeated(part, 3000);
		for (const float width : {0.0f, 1.0f, 15.0f, 100.0f, 250.0f, 400.0f})
			EXPECT_EQ(truncated(text, width), truncated(shorter, width)) << width;
	}
}


TEST(CutTextTest, WhatIsLeft_FitsAndIsNotMuchLessThanThereIsRoomFor)
{
	for (const std::string& part : kParts) {
		SCOPED_TRACE(part);
		const std::string cut = truncated(repeated(part, 65535), 300);
		EXPECT_LE(be_plain_font->StringWidth(cut.c_str()), 300);
		EXPECT_GT(be_plain_font->StringWidth(cut.c_str()), 220);
		EXPECT_EQ(cut.find("\ufffd"), std::string::npos) << "no half of a character";
		EXPECT_EQ(cut.substr(cut.size() - 3), "\u2026");
	}
}


TEST(CutTextTest, CutInTheMiddleOrAtTheStart_VeryLongStringsKeepTheirEnds)
{
	const std::string text = "start" + repeated("\U0001f600", 65500) + "end";
	const std::string middle = truncated(text, 200, B_TRUNCATE_MIDDLE);
	EXPECT_EQ(middle.substr(0, 5), "start");
	EXPECT_EQ(middle.substr(middle.size() - 3), "end");
	const std::string beginning = truncated(text, 200, B_TRUNCATE_BEGINNING);
	EXPECT_EQ(beginning.substr(0, 3), "\u2026");
	EXPECT_EQ(beginning.substr(beginning.size() - 3), "end");
	for (const std::string& cut : {middle, beginning}) {
		EXPECT_LE(be_plain_font->StringWidth(cut.c_str()), 200);
		EXPECT_EQ(cut.find("\ufffd"), std::string::npos);
	}
}


// On the screen it is two replacements, each with a width of its own; half of it would be a question
// mark.
TEST(CutTextTest, CharacterThatNoFontEverHas_StaysWhole)
{
	const std::string text = repeated("\U0001ffff", 400);
	for (float width = 0; width < 100; width++) {
		for (const uint32 mode : {B_TRUNCATE_END, B_TRUNCATE_MIDDLE, B_TRUNCATE_BEGINNING})
			EXPECT_EQ(truncated(text, width, mode).find('?'), std::string::npos) << width;
	}
}


TEST(CutTextTest, LettersWithoutAWidth_EndAfterSomeThousand)
{
	const std::string some = repeated("\u200b", 9000);
	EXPECT_EQ(truncated(some, 100), some);
	const std::string cut = truncated(repeated("\u200b", 60000), 100);
	EXPECT_EQ(cut, repeated("\u200b", 3 * 4096) + "\u2026");
}


// #pragma mark - where they are shown


class LongTextTest : public ListViewFixture {};


TEST_F(LongTextTest, OfALabel_IsKeptAndReadWhole_ShownAsFarAsThereIsRoom)
{
	const std::string text = repeated("harbor ", 65535);
	for (const uint32 mode : {B_TRUNCATE_END, B_NO_TRUNCATION}) {
		BStringView view("view", text.c_str());
		view.SetTruncation(mode);
		EXPECT_EQ(view.Text(), text);
		EXPECT_EQ(accessible_of(&view).name, text);
		EXPECT_GE(view.PreferredSize().width, 3000);
		EXPECT_EQ(view.PreferredSize(), view.MaxSize());

		// Where it ends is seen by nobody.
		BStringView shorter("shorter", text.substr(0, 2100).c_str());
		shorter.SetTruncation(mode);
		EXPECT_EQ(shorter.PreferredSize(), view.PreferredSize());
		EXPECT_TRUE(picture_of(&shorter) == picture_of(&view));
	}
}


TEST_F(LongTextTest, OfATitle_IsKeptWhole_AndShownWithAnEllipsis)
{
	const std::string text = repeated("\U0001f600", 65535);
	fWindow->SetTitle(text.c_str());
	EXPECT_EQ(fWindow->Title(), text);
	EXPECT_SOON(shown_title(fWindow) == repeated("\U0001f600", 2000) + "\u2026");
	// It was only just short enough, before what stands for its brackets.
	const std::string brackets = repeated("[*]", 999);
	fWindow->SetTitle(brackets.c_str());
	EXPECT_SOON(shown_title(fWindow) == brackets);
}


TEST_F(LongTextTest, OfARow_IsReadWhole_AndDrawnAsFarAsItIsSeen)
{
	const std::string text = repeated("harbor ", 65535);
	fList->AddItem(Keep(new BStringItem(text.c_str())));
	fList->AddItem(Keep(new BStringItem(text.substr(0, 700).c_str())));
	ASSERT_TRUE(WaitForRows(2));
	EXPECT_EQ(accessible_of_row(fList, 0).name, text);
	const BRect first = fList->ItemFrame(0);
	const BRect second = fList->ItemFrame(1);
	const float middle = first.Height() / 2;
	bool isDrawn = false;
	for (float x = 2; x < first.right; x++) {
		const unsigned color = pixel_of(fList, BPoint(x, first.top + middle));
		EXPECT_EQ(color, pixel_of(fList, BPoint(x, second.top + middle))) << x;
		isDrawn |= color != pixel_of(fList, BPoint(x, first.top));
	}
	EXPECT_TRUE(isDrawn);
}
