/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextControl.h>

#include <string>

#include <gtest/gtest.h>

#include <Size.h>
#include <TextView.h>

#include "ExpectSoon.h"
#include "UserInput.h"
#include "WindowWithView.h"


class TextControlTest : public ViewInAWindow {
protected:
	void SetUp() override
	{
		fControl = new BTextControl("name", "&File:", "", NULL);
		fOther = new BTextControl("other", "A longer label:", "5500", NULL);
		fWindow = new WindowWithView(400, 200);
		fWindow->Add(fControl);
		fWindow->Add(fOther);
		fWindow->ShowIt();
	}

	BTextControl* fControl;
	BTextControl* fOther;
};


TEST_F(TextControlTest, AnyBytes_ComeBackUnchanged)
{
	const std::string texts[] = {"", " blanks ", "<b>&amp;%s[*]&File", "na\xefve\xff",
		"line\nline\r\n", "\x01\x02\t\x7f", "\xf0\x9f\x98\x80", std::string(100000, 'x')};
	for (const std::string& text : texts) {
		fControl->SetText(text.c_str());
		EXPECT_EQ(fControl->Text(), text);
	}
	fControl->SetText(NULL);
	EXPECT_STREQ(fControl->Text(), "");

	EXPECT_STREQ(fOther->Text(), "5500");
}


TEST_F(TextControlTest, WhatIsTyped_IsTheTextAsItIsShown)
{
	fControl->MakeFocus(true);
	EXPECT_TRUE(fControl->IsFocus());
	type_text(fControl, " caf\xc3\xa9 ");
	EXPECT_STREQ(fControl->Text(), " caf\xc3\xa9 ");
	press_key(fControl, kKeyBackspace);
	EXPECT_STREQ(fControl->Text(), " caf\xc3\xa9");

	fControl->SetText("a\xff");
	fControl->TextView()->Select(2, 2);
	type_text(fControl, "b");
	EXPECT_STREQ(fControl->Text(),
		"a\xef\xbf\xbd"
		"b");
}


TEST_F(TextControlTest, Pasted_IsOneLine_HoweverLong)
{
	fControl->SetText("ab");
	fControl->TextView()->Select(1, 1);
	set_clipboard("one\ntwo\r\nthree\tfour\n");
	press_key(fControl, kKeyPaste);
	EXPECT_STREQ(fControl->Text(), "aone two  three\tfour b");
	type_text(fControl, "|");
	EXPECT_STREQ(fControl->Text(), "aone two  three\tfour |b");

	fControl->SetText("");
	set_clipboard(std::string(70000, 'x').c_str());
	press_key(fControl, kKeyPaste);
	EXPECT_EQ(strlen(fControl->Text()), 70000u);
}


TEST_F(TextControlTest, Disabled_TakesNoKeys)
{
	fControl->SetEnabled(false);
	type_text(fControl, "text");
	EXPECT_STREQ(fControl->Text(), "");
	fControl->SetEnabled(true);
	fControl->MakeFocus(true);
	EXPECT_TRUE(fControl->IsFocus());
	type_text(fControl, "text");
	EXPECT_STREQ(fControl->Text(), "text");
}


TEST_F(TextControlTest, HiddenTyping_IsAPassword)
{
	EXPECT_FALSE(accessible_of(fControl).isPassword);
	fControl->TextView()->HideTyping(true);
	EXPECT_TRUE(fControl->TextView()->IsTypingHidden());
	type_text(fControl, "secret");
	EXPECT_TRUE(accessible_of(fControl).isPassword);
	EXPECT_STREQ(fControl->Text(), "secret");
	EXPECT_EQ(accessible_of(fControl).text.find("secret"), std::string::npos);
}


TEST_F(TextControlTest, Label_IsTheFieldsNameAsItStands)
{
	EXPECT_EQ(accessible_of(fControl).name, "&File:");
	BTextControl markup("markup", "<b>Login:", "", NULL);
	EXPECT_EQ(accessible_of(&markup).name, "<b>Login:");
	EXPECT_STREQ(markup.Label(), "<b>Login:");
}


TEST_F(TextControlTest, SameDivider_LinesTheFieldsUp_WhichGrowInWidthOnly)
{
	const float divider = fOther->StringWidth("A longer label:") + 8;
	fControl->SetDivider(divider);
	fOther->SetDivider(divider);
	EXPECT_EQ(fControl->Divider(), divider);
	EXPECT_SOON(fControl->TextView()->Frame().left > divider - 1
		&& fControl->TextView()->Frame().left < divider + 1
		&& fOther->TextView()->Frame().left == fControl->TextView()->Frame().left);

	EXPECT_EQ(fControl->MaxSize().width, B_SIZE_UNLIMITED);
	EXPECT_LT(fControl->MaxSize().height, 60);
	EXPECT_EQ(fControl->MaxSize().height, fControl->PreferredSize().height);
	EXPECT_LE(fControl->MinSize().width, fControl->PreferredSize().width);
	EXPECT_LE(fControl->MinSize().height, fControl->PreferredSize().height);
}


TEST_F(TextControlTest, WithoutLabel_TheFieldFillsTheControl)
{
	BTextControl* control = new BTextControl("entry", NULL, "", NULL);
	fWindow->Add(control);
	ASSERT_SOON(control->Bounds().Width() > 300);
	EXPECT_EQ(control->Divider(), 0);
	EXPECT_EQ(control->TextView()->Frame().left, 0);
	EXPECT_EQ(control->TextView()->Frame().Width(), control->Bounds().Width());
}


TEST_F(TextControlTest, FieldOfTheControl_IsAView)
{
	EXPECT_EQ(fControl->TextView()->TextLength(), 0);
	fControl->TextView()->SetText("abc");
	EXPECT_STREQ(fControl->Text(), "abc");
	fControl->TextView()->Insert(1, "\xc3\xa9", 2);
	EXPECT_STREQ(fControl->Text(),
		"a\xc3\xa9"
		"bc");
	fControl->TextView()->Select(1, 3);
	int32 start;
	int32 end;
	fControl->TextView()->GetSelection(&start, &end);
	EXPECT_EQ(start, 1);
	EXPECT_EQ(end, 3);
}


TEST_F(TextControlTest, Caret_RestsWhenNobodyTypes)
{
	rest_carets_after(1);
	type_text(fControl, "a");
	EXPECT_SOON(!carets_blink());
	rest_carets_after(60000);
	type_text(fControl, "b");
	EXPECT_TRUE(carets_blink());
	rest_carets_after(1);
	click(fOther->TextView(), BPoint(4, 4));
	EXPECT_SOON(!carets_blink());
	rest_carets_after(60000);
	click(fControl->TextView(), BPoint(4, 4));
	EXPECT_TRUE(carets_blink());
}
