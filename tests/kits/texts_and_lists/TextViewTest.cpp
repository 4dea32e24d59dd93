/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextView.h>

#include <functional>
#include <string>

#include <gtest/gtest.h>

#include <Button.h>
#include <Font.h>
#include <Handler.h>
#include <Menu.h>
#include <MenuBar.h>
#include <MenuItem.h>
#include <Message.h>
#include <Messenger.h>
#include <TextControl.h>

#include "ExpectSoon.h"
#include "Transcript.h"
#include "UserInput.h"
#include "WindowInput.h"


static const rgb_color kRed = {200, 0, 0, 255};
static const rgb_color kGreen = {0, 128, 0, 255};


class TextViewTest : public Transcript {
protected:
	/*!	As a chat does: what is appended is scrolled to, and may wait for the next frame. */
	void Append(const std::string& text, int times = 1, rgb_color color = kRed)
	{
		for (int i = 0; i < times; i++) {
			fText->SetFontAndColor(be_plain_font, B_FONT_ALL, &color);
			fText->Insert(fText->TextLength(), text.data(), static_cast<int32>(text.size()));
			fText->ScrollToOffset(fText->TextLength());
		}
	}

	bool IsEndSeen() const { return IsSeen(fText->TextLength()); }

	rgb_color ColorAt(int32 offset) const
	{
		rgb_color color;
		fText->GetFontAndColor(offset, NULL, &color);
		return color;
	}
};


/*!	Does something for every message that comes. */
class ActingHandler : public BHandler {
public:
	explicit ActingHandler(std::function<void(BMessage*)> act)
		: fAct(std::move(act))
	{
	}

	void MessageReceived(BMessage* message) override { fAct(message); }

private:
	std::function<void(BMessage*)> fAct;
};


TEST_F(TextViewTest, AnyBytes_ComeBackUnchanged)
{
	const std::string word(65535, 'w');
	const std::string texts[] = {"<b>bold</b> &amp; %s %n [*] &File\n", "a\rb\r\nc\n",
		"\x01\x02\x07\x1b[31m\x7f\n", "na\xefve \xff\xfe caf\xc3\n",
		"\xe2\x80\xa8 \xe2\x80\xa9 \xef\xb7\x90",
		"\xf0\x9f\x98\x80 \xe4\xbd\xa0\xe5\xa5\xbd \xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d\n",
		"\xc2\xa0\t\n", word + "\n", "no end"};
	std::string all;
	for (const std::string& text : texts) {
		Append(text);
		all += text;
		ASSERT_EQ(fText->TextLength(), static_cast<int32>(all.size()));
		ASSERT_EQ(fText->Text(), all);
	}
	// A question about a place in the text needs all of it laid out.
	fText->PointAt(0);
	EXPECT_EQ(fText->Text(), all);
}


TEST_F(TextViewTest, MarkupAndInvalidBytes_AreShownAsTheyStand)
{
	Append("<b>x</b> &amp; &File [*] %s a\xff|");
	EXPECT_SOON(accessible_of(fText).text == "<b>x</b> &amp; &File [*] %s a\xef\xbf\xbd|");
	EXPECT_STREQ(fText->Text(), "<b>x</b> &amp; &File [*] %s a\xff|");
}


TEST_F(TextViewTest, ScrolledAway_AppendingShowsTheEndAgain)
{
	Append("line\n", 300);
	ASSERT_SOON(IsEndSeen());
	EXPECT_FALSE(fText->Bounds().Contains(fText->PointAt(0)));
	scroll_to_top(fText);
	ASSERT_FALSE(IsEndSeen());
	Append("news\n");
	EXPECT_SOON(IsEndSeen());
}


TEST_F(TextViewTest, ManyPiecesInOneTurn_AllArrive)
{
	std::string all;
	for (int i = 0; i < 5000; i++) {
		const std::string line = "line " + std::to_string(i)
			+ " of a flood of sixty-two bytes each\n";
		Append(line, 1, i % 3 == 0 ? kRed : kGreen);
		all += line;
	}
	EXPECT_TRUE(WaitUntilShown());
	EXPECT_EQ(fText->Text(), all);
	EXPECT_SOON(IsEndSeen());
}


TEST_F(TextViewTest, LineOfAMebibyte_IsScrolledTo)
{
	std::string line;
	while (line.size() <= 1024 * 1024)
		line += "a word and another ";
	Append(line);
	EXPECT_TRUE(WaitUntilShown());
	EXPECT_TRUE(IsEndSeen());
}


TEST_F(TextViewTest, TwentyWordsOfTheLargestSize_AreShownAndLeaveOthersServed)
{
	WindowWithView* other = new WindowWithView(100, 100);
	other->Add(new BTextView("other"));
	other->ShowIt();
	// Beats again with every turn of the other window.
	int beats = 0;
	ActingHandler heart([&](BMessage* message) {
		beats++;
		BMessenger(&heart).SendMessage(message->what);
	});
	other->AddHandler(&heart);
	BMessenger(&heart).SendMessage('beat');

	// The next one comes when the last one is seen.
	const std::string word = std::string(65535, 'x') + "\n";
	int appended = 0;
	ActingHandler appender([&](BMessage* message) {
		if (!waits_for_frame(fText)) {
			appended++;
			Append(word);
		}
		BMessenger(&appender).SendMessage(message->what);
	});
	fWindow->AddHandler(&appender);
	BMessenger(&appender).SendMessage('appd');
	EXPECT_SOON(appended >= 20);
	EXPECT_GE(beats, 20);
	EXPECT_TRUE(WaitUntilShown());
	EXPECT_TRUE(IsEndSeen());
	// Wrapped: not all in one line.
	EXPECT_GT(fText->PointAt(65536 * 20 - 2).y, fText->PointAt(65536 * 19).y);

	fWindow->RemoveHandler(&appender);
	other->RemoveHandler(&heart);
	other->Lock();
	other->Quit();
}


TEST_F(TextViewTest, LongWordThatGrows_WrapsAtTheEdge)
{
	Append("before ");
	Append(std::string(800, 'x'));
	ASSERT_TRUE(WaitUntilShown());
	scroll_to_top(fText);
	EXPECT_GT(fText->PointAt(7).y, fText->PointAt(0).y);
	Append(std::string(800, 'x'));
	ASSERT_TRUE(WaitUntilShown());
	EXPECT_TRUE(IsEndSeen());
	scroll_to_top(fText);
	EXPECT_GT(fText->PointAt(7).y, fText->PointAt(0).y);
	EXPECT_GT(fText->PointAt(150).y, fText->PointAt(7).y);
}


TEST_F(TextViewTest, Color_IsThatOfTheInsertion)
{
	Append("red\n", 1, kRed);
	Append("green\n", 1, kGreen);
	EXPECT_TRUE(ColorAt(0) == kRed);
	EXPECT_TRUE(ColorAt(4) == kGreen);
	ASSERT_TRUE(WaitUntilShown());
	EXPECT_TRUE(ColorAt(2) == kRed);
	EXPECT_TRUE(ColorAt(4) == kGreen);
	EXPECT_TRUE(ColorAt(8) == kGreen);
	EXPECT_NE(accessible_attributes(fText, 1).find("color:rgb(200,0,0)"), std::string::npos);
	EXPECT_NE(accessible_attributes(fText, 5).find("color:rgb(0,128,0)"), std::string::npos);
}


TEST_F(TextViewTest, StyledRanges_BeforeAndAfterTheyAreShown)
{
	for (const bool shown : {false, true}) {
		SCOPED_TRACE(shown);
		const int32 start = fText->TextLength();
		fText->Insert(start, "Bob: hi\n", 8);
		if (shown) {
			ASSERT_TRUE(WaitUntilShown());
		}
		fText->SetFontAndColor(start, start + 5, be_bold_font, B_FONT_ALL, &kRed);
		fText->SetFontAndColor(start + 5, start + 8, be_plain_font, B_FONT_ALL, &kGreen);
		ASSERT_TRUE(WaitUntilShown());

		for (int32 i = 0; i < 8; i++) {
			BFont font;
			rgb_color color;
			fText->GetFontAndColor(start + i, &font, &color);
			EXPECT_EQ((font.Face() & B_BOLD_FACE) != 0, i < 5) << i;
			EXPECT_TRUE(color == (i < 5 ? kRed : kGreen)) << i;
		}
	}
}


TEST_F(TextViewTest, StyledOrInAnotherFont_TheTextKeepsItsBytesAndStyles)
{
	const std::string text = "na\xefve\r\n \xff\xfe caf\xc3\n";
	fText->Insert(0, text.data(), static_cast<int32>(text.size()));
	// A question about a place in the text needs all of it laid out.
	fText->PointAt(0);
	fText->SetFontAndColor(0, static_cast<int32>(text.size()), be_bold_font, B_FONT_ALL, &kGreen);
	EXPECT_TRUE(ColorAt(2) == kGreen);
	EXPECT_EQ(fText->TextLength(), static_cast<int32>(text.size()));
	EXPECT_EQ(fText->Text(), text);

	fText->SetText("");
	Append("before\n");
	// A question about a place in the text needs all of it laid out.
	fText->PointAt(0);
	BFont large;
	large.SetSize(40);
	fText->SetFont(&large);
	Append("after\n");
	fText->PointAt(0);
	BFont font;
	fText->GetFontAndColor(8, &font);
	EXPECT_EQ(font.Size(), be_plain_font->Size());
}


TEST_F(TextViewTest, SelectionOfTheUser_DoesNotGrowAndKeepsItsAnchor)
{
	Append("one\ntwo\n");
	ASSERT_TRUE(WaitUntilShown());
	press_key(fText, kKeySelectAll);
	Append("three\n");
	ASSERT_TRUE(WaitUntilShown());
	EXPECT_EQ(Selection(), "0..8");
	EXPECT_SOON(IsEndSeen());

	press_key(fText, kKeyEnd);
	press_key(fText, kKeySelectToStart);
	Append("four\n");
	ASSERT_TRUE(WaitUntilShown());
	EXPECT_EQ(Selection(), "0..14");
	// What moves is the side that the user had moved.
	press_key(fText, kKeySelectRight);
	EXPECT_EQ(Selection(), "1..14");
}


TEST_F(TextViewTest, StyleWithoutARange_IsThatOfTheSelection_AndOfNothingElse)
{
	Append("one\ntwo\n");
	LockedWindow lock(fWindow);
	fText->Select(2, 6);
	fText->SetFontAndColor(be_plain_font, B_FONT_ALL, &kGreen);
	EXPECT_TRUE(ColorAt(1) == kRed);
	EXPECT_TRUE(ColorAt(2) == kGreen);
	EXPECT_TRUE(ColorAt(5) == kGreen);
	EXPECT_TRUE(ColorAt(6) == kRed);
	fText->Insert(fText->TextLength(), "three\n", 6);
	EXPECT_TRUE(ColorAt(9) == kRed);
}


TEST_F(TextViewTest, Insertion_HasTheStyleThatWasSetForIt_OrThatOfWhatStandsBefore)
{
	LockedWindow lock(fWindow);
	fText->SetFontAndColor(be_plain_font, B_FONT_ALL, &kRed);
	fText->Insert(0, "red", 3);
	fText->SetFontAndColor(be_plain_font, B_FONT_ALL, &kGreen);
	fText->Insert(3, "green", 5);
	fText->Insert(3, "!", 1);
	EXPECT_TRUE(ColorAt(3) == kRed);
	EXPECT_TRUE(ColorAt(4) == kGreen);
	fText->Insert(9, "?", 1);
	EXPECT_TRUE(ColorAt(9) == kGreen);

	fText->SetFontAndColor(3, 4, be_plain_font, B_FONT_ALL, &kGreen);
	fText->Insert(4, "!", 1);
	EXPECT_TRUE(ColorAt(4) == kGreen);
}


// Differs from Haiku, where nothing is selected after an insertion, and the caret goes along.
TEST_F(TextViewTest, Insert_LeavesWhatIsSelectedAndTheCaret)
{
	Append("one\ntwo\n");
	LockedWindow lock(fWindow);
	fText->Select(2, 6);
	fText->Insert(8, "three\n", 6);
	EXPECT_EQ(Selection(), "2..6");
	fText->Insert(0, "zero\n", 5);
	EXPECT_EQ(Selection(), "7..11");
	fText->Select(19, 19);
	fText->Insert(19, "four\n", 5);
	EXPECT_EQ(Selection(), "19..19");
}


TEST_F(TextViewTest, UnselectedAndSelectedAgainInOneTurn_TheCaretIsWhatItWas)
{
	Append("wide line\nx\nwide line\n");
	const auto append = [this] {
		LockedWindow lock(fWindow);
		int32 start;
		int32 end;
		fText->GetSelection(&start, &end);
		fText->Select(start, start);
		Append("more\n");
		fText->Select(start, end);
	};
	// Backwards, and with a column that the line in between does not have.
	fText->Select(18, 18);
	press_window_key(fWindow, B_UP_ARROW, B_SHIFT_KEY);
	EXPECT_EQ(Selection(), "11..18");
	append();
	press_window_key(fWindow, B_UP_ARROW, B_SHIFT_KEY);
	EXPECT_EQ(Selection(), "6..18");

	double_click(fText, Before(2));
	EXPECT_EQ(Selection(), "0..4");
	append();
	press_mouse(fText, Before(7), B_SHIFT_KEY);
	append();
	drag_mouse(fText, Before(8));
	EXPECT_EQ(Selection(), "0..9");
	release_mouse(fText, Before(8));
	EXPECT_EQ(Selection(), "0..9");
}


TEST_F(TextViewTest, Offsets_AreBytesAndCutToTheText_UnlessThereIsOneStyle)
{
	Append("\xc3\xa9\xf0\x9f\x98\x80z\r\nend");
	fText->Select(2, 6);
	EXPECT_EQ(Selection(), "2..6");
	fText->Insert(7, "!", 1);
	fText->Insert(100, "!", 1);
	fText->Insert(-5, "<", 1);
	EXPECT_STREQ(fText->Text(), "<\xc3\xa9\xf0\x9f\x98\x80z!\r\nend!");
	fText->Select(-3, 900);
	EXPECT_EQ(Selection(), "0..15");
	fText->SetFontAndColor(-1, 500, be_plain_font, B_FONT_ALL, &kGreen);
	EXPECT_TRUE(ColorAt(14) == kGreen);

	fText->SetStylable(false);
	fText->SetText("plain text");
	fText->SetFontAndColor(2, 4, be_plain_font, B_FONT_ALL, &kGreen);
	EXPECT_TRUE(ColorAt(0) == kGreen);
	EXPECT_TRUE(ColorAt(9) == kGreen);
}


TEST_F(TextViewTest, SetText_ReplacesEverythingAndShowsItsStart)
{
	Append("line\n", 300);
	ASSERT_SOON(IsEndSeen());
	Append("waiting");
	std::string text;
	for (int i = 0; i < 200; i++)
		text += "rule\r";
	fText->SetText(text.c_str());
	EXPECT_EQ(fText->Text(), text);
	EXPECT_SOON(fText->Bounds().Contains(fText->PointAt(0)));
	EXPECT_FALSE(IsEndSeen());
	fText->SetText(NULL);
	EXPECT_EQ(fText->TextLength(), 0);
	EXPECT_STREQ(fText->Text(), "");
}


// Differs from Haiku, where a text that is editable is typed into.
TEST_F(TextViewTest, Keys_ChangeNothingButMoveTheCaret)
{
	Append("text");
	for (const bool isEditable : {false, true}) {
		SCOPED_TRACE(isEditable);
		fText->MakeEditable(isEditable);
		ASSERT_TRUE(WaitUntilShown());
		type_text(fText, "more");
		press_key(fText, kKeyBackspace);
		EXPECT_STREQ(fText->Text(), "text");
		EXPECT_TRUE(accessible_of(fText).isReadOnly);
	}
	press_key(fText, kKeySelectAll);
	EXPECT_EQ(Selection(), "0..4");
}


TEST_F(TextViewTest, DeletedWithTextWaiting_IsNoTrouble)
{
	Append("waiting\n");
	WindowWithView* other = new WindowWithView(200, 100);
	BTextView* text = new BTextView("short-lived");
	other->Add(text);
	other->ShowIt();
	text->SetText("never shown\n");
	other->Lock();
	other->Quit();
	EXPECT_TRUE(WaitUntilShown());
}


TEST_F(TextViewTest, Focus_IsSeenByTheBorder)
{
	ExpectFocusByBorder(fWindow, fText);
}


TEST_F(TextViewTest, KeysThatItDoesNotUse_ReachTheWindow)
{
	WindowWithView* window = new WindowWithView(200, 200);
	BMenuBar* bar = new BMenuBar("bar");
	BMenu* menu = new BMenu("Menu");
	menu->AddItem(new BMenuItem("Item", new BMessage('item'), 'L'));
	bar->AddItem(menu);
	BTextView* text = new BTextView("text");
	text->MakeEditable(false);
	BTextControl* control = new BTextControl("control", "Next", "", NULL);
	BButton* button = new BButton("button", "Default", new BMessage('dflt'));
	for (BView* view : {static_cast<BView*>(bar), static_cast<BView*>(text),
			 static_cast<BView*>(control), static_cast<BView*>(button)})
		window->Add(view);
	button->MakeDefault(true);
	window->ShowIt();
	text->SetText("text");

	text->MakeFocus(true);
	press_window_key(window, 'L', B_COMMAND_KEY);
	press_window_key(window, B_ENTER);
	EXPECT_SOON(window->Count('item') == 1 && window->Count('dflt') == 1);
	press_window_key(window, B_TAB);
	EXPECT_FALSE(text->IsFocus());
	EXPECT_TRUE(control->TextView()->IsFocus());
	window->Lock();
	window->Quit();
}
