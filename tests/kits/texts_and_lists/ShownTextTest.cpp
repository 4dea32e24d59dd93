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
		return fText->PointAt(static_cast<int32>(text.size())).x - fText->PointAt(0).x;
	}

	static std::string Repeated(const std::string& part, int count)
	{
		std::string all;
		for (int i = 0; i < count; i++)
			all += part;
		return all;
	}

	static std::string Accents(int count) { return Repeated("\u0301", count); }

	/*!	\return A text of letters and control characters, cut to a hundred pixels. */
	static std::string Cut(uint32 mode)
	{
		BString cut(Repeated("a\x01", 100).c_str());
		be_plain_font->TruncateString(&cut, mode, 100);
		EXPECT_LE(be_plain_font->StringWidth(cut.String()), 100);
		EXPECT_EQ(NULL, strstr(cut.String(), "\ufffd"));
		return cut.String();
	}
};


TEST_F(ShownTextTest, ControlCharactersAndNoncharacters_AreReplaced_ButTabsAndLineEnds)
{
	const std::string controls[] = {"\x01", "\x1b", "\x7f", "\u0085"};
	ASSERT_NE(WidthOf("\ue000"), WidthOf("\ufffd"));
	for (const std::string& control : controls)
		EXPECT_EQ(WidthOf("a" + control + "z"), WidthOf("a\ufffdz"))
			<< static_cast<int>(control[0]);
	EXPECT_STREQ(fText->Text(), "a\u0085z");
	EXPECT_EQ(ScreenReader(fText).CountCharacters(), 3);

	EXPECT_EQ(WidthOf("a\xef\xb7\x90z"), WidthOf("a\ufffdz"));
	EXPECT_EQ(WidthOf("a\xef\xbf\xbfz"), WidthOf("a\ufffdz"));
	EXPECT_EQ(WidthOf("a\xf0\x9f\xbf\xbfz"), WidthOf("a\ufffd\ufffdz"));

	EXPECT_GT(WidthOf("a\tz"), WidthOf("a\ufffdz"));
	for (const char* end : {"\r", "\n"}) {
		BStringView label("label", (std::string("a") + end + "z").c_str());
		BStringView replacement("replacement", "a\ufffdz");
		EXPECT_NE(picture_of(&label), picture_of(&replacement));
	}
}


TEST_F(ShownTextTest, Copying_CopiesTheTextItself)
{
	Append("a\x01" + Accents(32));
	Press('A', B_COMMAND_KEY);
	Press('C', B_COMMAND_KEY);
	EXPECT_EQ(clipboard(), "a\x01" + Accents(32));
}


TEST_F(ShownTextTest, ManyMarksOnALetter_AreReplaced)
{
	const float letter = WidthOf("e");
	const float replacement = WidthOf("\ufffd");
	EXPECT_EQ(WidthOf("e" + Accents(30)), letter);
	EXPECT_EQ(WidthOf("e" + Accents(32)), letter + 2 * replacement);
	EXPECT_EQ(WidthOf("e" + Accents(30) + "e" + Accents(30)), 2 * letter);
	// What joins letters does not make room for more marks; a mark of two UTF-16 units counts like
	// any.
	EXPECT_EQ(WidthOf("e" + Repeated("\u0301\u200c", 32)), letter + 2 * replacement);
	EXPECT_EQ(WidthOf("e" + Accents(30) + "\U000e0100"), letter + 2 * replacement);
}


TEST_F(ShownTextTest, CutString_KeepsItsCharacters)
{
	const std::string end = Cut(B_TRUNCATE_END);
	EXPECT_EQ(0u,
		end.find("a\x01"
				 "a\x01"));
	EXPECT_EQ(end.size() - 3, end.find("\u2026"));
	const std::string middle = Cut(B_TRUNCATE_MIDDLE);
	EXPECT_EQ(0u,
		middle.find("a\x01"
					"a"));
	EXPECT_EQ("a\x01", middle.substr(middle.size() - 2));
	const std::string beginning = Cut(B_TRUNCATE_BEGINNING);
	EXPECT_EQ(0u, beginning.find("\u2026"));
	EXPECT_EQ("\x01"
			  "a\x01",
		beginning.substr(beginning.size() - 3));
}


TEST_F(ShownTextTest, DrawnStringsAndLabels_AreMeasuredAndShownLikewise)
{
	EXPECT_EQ(be_plain_font->StringWidth("a\x01z"), be_plain_font->StringWidth("a\ufffdz"));
	StringCanvas control("a\x01z");
	StringCanvas replacement("a\ufffdz");
	StringCanvas box("a\ue000z");
	EXPECT_EQ(picture_of(&control), picture_of(&replacement));
	EXPECT_NE(picture_of(&box), picture_of(&replacement));

	BStringView controlLabel("control", "a\x01z");
	BStringView replacementLabel("replacement", "a\ufffdz");
	BStringView boxLabel("box", "a\ue000z");
	EXPECT_EQ(picture_of(&controlLabel), picture_of(&replacementLabel));
	EXPECT_NE(picture_of(&boxLabel), picture_of(&replacementLabel));
	EXPECT_EQ(accessible_of(&controlLabel).name, "a\x01z");
}
