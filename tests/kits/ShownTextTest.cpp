/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// What is drawn in place of characters that have no shape.
#include <string>

#include <Font.h>
#include <StringView.h>
#include <View.h>

#include "ScreenReader.h"
#include "Transcript.h"
#include "UserInput.h"


namespace {

/*!	A view that draws a string. */
class StringCanvas : public BView {
public:
	explicit StringCanvas(const char* string)
		: BView("canvas", B_WILL_DRAW),
		  fString(string)
	{
	}

	void Draw(BRect) override { DrawString(fString, BPoint(10, 20)); }

private:
	const char* fString;
};


class ShownTextTest : public Transcript {
protected:
	/*!	\return How far the text reaches, in pixels. */
	float WidthOf(const std::string& text)
	{
		fText->SetText(text.c_str());
		return fText->PointAt(int32(text.size())).x - fText->PointAt(0).x;
	}

	static std::string Accents(int count)
	{
		std::string accents;
		for (int i = 0; i < count; i++)
			accents += "\u0301";
		return accents;
	}
};

} // namespace


TEST_F(ShownTextTest, ControlCharacters_AreReplaced)
{
	const std::string controls[] = {"\x01", "\x1b", "\x7f", "\u0085"};
	ASSERT_NE(WidthOf("\ue000"), WidthOf("\ufffd"));
	for (const std::string& control : controls)
		EXPECT_EQ(WidthOf("a" + control + "z"), WidthOf("a\ufffdz")) << int(control[0]);
	EXPECT_STREQ(fText->Text(), "a\u0085z");
	EXPECT_EQ(ScreenReader(fText).CountCharacters(), 3);
}


TEST_F(ShownTextTest, Tab_IsNotReplaced)
{
	EXPECT_GT(WidthOf("a\tz"), WidthOf("a\ufffdz"));
}


TEST_F(ShownTextTest, ManyMarksOnALetter_AreReplaced)
{
	const float letter = WidthOf("e");
	const float replacement = WidthOf("\ufffd");
	EXPECT_EQ(WidthOf("e" + Accents(30)), letter);
	EXPECT_EQ(WidthOf("e" + Accents(32)), letter + 2 * replacement);
	EXPECT_EQ(WidthOf("e" + Accents(30) + "e" + Accents(30)), 2 * letter);
}


TEST_F(ShownTextTest, DrawnStrings_AreMeasuredAndShownLikewise)
{
	EXPECT_EQ(be_plain_font->StringWidth("a\x01z"), be_plain_font->StringWidth("a\ufffdz"));
	StringCanvas control("a\x01z");
	StringCanvas replacement("a\ufffdz");
	StringCanvas box("a\ue000z");
	EXPECT_EQ(picture_of(&control), picture_of(&replacement));
	EXPECT_NE(picture_of(&box), picture_of(&replacement));
}


TEST_F(ShownTextTest, Labels_ShowIt)
{
	BStringView control("control", "a\x01z");
	BStringView replacement("replacement", "a\ufffdz");
	BStringView box("box", "a\ue000z");
	EXPECT_EQ(picture_of(&control), picture_of(&replacement));
	EXPECT_NE(picture_of(&box), picture_of(&replacement));
	EXPECT_EQ(accessible_of(&control).name, "a\x01z");
}
