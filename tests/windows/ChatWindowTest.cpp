/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ChatWindow.h"

#include <InterfaceDefs.h>
#include <ScrollView.h>
#include <TextControl.h>
#include <TextView.h>

#include "AppMessages.h"
#include "HostileTexts.h"
#include "WindowTest.h"


class ChatWindowTest : public WindowTest {
protected:
	ChatWindowTest() { Open(new ChatWindow(BRect(100, 180, 650, 550), fTarget.get())); }

	void _Append(const std::string& text, uint32 color)
	{
		fWindow->Post(
			built_message(kMsgAppendChat, "text", text, "color", static_cast<int32>(color)));
	}

	void _Enable(bool enabled) { fWindow->Post(built_message(kMsgEnableChat, "enabled", enabled)); }

	void _ExpectColor(int32 offset, rgb_color expected)
	{
		rgb_color color = {1, 2, 3, 4};
		fWindow->Find<BTextView>("chatview")->GetFontAndColor(offset, NULL, &color);
		EXPECT_EQ(expected, color) << offset;
	}

	// Whether the end of the transcript is in view.
	bool _ShowsTheEnd()
	{
		const BTextView* view = fWindow->Find<BTextView>("chatview");
		float height = 0;
		const BPoint end = view->PointAt(view->TextLength(), &height);
		return end.y >= view->Bounds().top && end.y + height <= view->Bounds().bottom + 1;
	}
};


TEST_F(ChatWindowTest, AtFirst_IsAnEmptyDocumentForReading)
{
	EXPECT_STREQ("Chat", fWindow->Window()->Title());
	EXPECT_EQ("", fWindow->Transcript("chatview"));
	EXPECT_EQ("", fWindow->Text("chatinput"));
	EXPECT_FALSE(fWindow->IsEnabled("chatinput"));
	EXPECT_EQ(B_DOCUMENT_WINDOW_LOOK, fWindow->Window()->Look());
	EXPECT_EQ(B_NORMAL_WINDOW_FEEL, fWindow->Window()->Feel());
	EXPECT_EQ(static_cast<uint32>(B_AUTO_UPDATE_SIZE_LIMITS), fWindow->Window()->Flags());
	const BScrollView* scrollView = fWindow->Find<BScrollView>("chatscroll");
	EXPECT_EQ(B_FANCY_BORDER, scrollView->Border());
	const BTextView* view = fWindow->Find<BTextView>("chatview");
	EXPECT_EQ(view, scrollView->Target());
	EXPECT_FALSE(view->IsEditable());
	EXPECT_TRUE(view->IsSelectable());
	EXPECT_TRUE(view->IsStylable());
	EXPECT_TRUE(view->DoesWordWrap());
}


TEST_F(ChatWindowTest, Enter_SendsTheLineOnceAsTypedAndClearsIt)
{
	_Enable(true);
	fWindow->Invoke("chatinput");
	EXPECT_EQ(0, fTarget->CountMessages());
	fWindow->SetText("chatinput", "  hello, world ");
	fWindow->Invoke("chatinput");
	fTarget->ExpectOnly(built_message(kMsgSendChat, "text", "  hello, world "));
	EXPECT_EQ("", fWindow->Text("chatinput"));
}


TEST_F(ChatWindowTest, HostileLine_IsSentAsTyped)
{
	_Enable(true);
	for (const std::string& text : hostile_texts()) {
		SCOPED_TRACE(text);
		fWindow->SetText("chatinput", text.c_str());
		fWindow->Invoke("chatinput");
		EXPECT_EQ(text, fTarget->Messages().back().GetString("text"));
	}
}


TEST_F(ChatWindowTest, Enabling_SwitchesTheLineAndFocusesIt)
{
	_Enable(true);
	EXPECT_TRUE(fWindow->IsEnabled("chatinput"));
	EXPECT_TRUE(fWindow->Find<BTextControl>("chatinput")->IsFocus()
		|| fWindow->Find<BTextControl>("chatinput")->TextView()->IsFocus());

	_Enable(false);
	EXPECT_FALSE(fWindow->IsEnabled("chatinput"));

	// Without the field as well.
	_Enable(true);
	fWindow->Post(kMsgEnableChat);
	EXPECT_FALSE(fWindow->IsEnabled("chatinput"));
}


TEST_F(ChatWindowTest, AppendWithoutTextOrColor_IsNothingOrBlack)
{
	_Append("green\n", 0x008000ff);
	fWindow->Post(built_message(kMsgAppendChat, "color", static_cast<int32>(0xff)));
	fWindow->Post(built_message(kMsgAppendChat, "text", "plain\n"));
	EXPECT_EQ("green\nplain\n", fWindow->Transcript("chatview"));
	_ExpectColor(7, make_color(0, 0, 0, 0));
}


TEST_F(ChatWindowTest, Append_TakesItsColorFromFourBytes)
{
	_Append("red\n", 0xc80000ff);
	_Append("purple\n", 0x800081ff);
	_ExpectColor(1, make_color(200, 0, 0));
	_ExpectColor(5, make_color(128, 0, 129));
}


TEST_F(ChatWindowTest, Append_AddsTheTextAsItStands)
{
	_Append("no line end", 0xff);
	_Append("\n*** framed ***\n", 0xff);
	EXPECT_EQ("no line end\n*** framed ***\n", fWindow->Transcript("chatview"));
}


TEST_F(ChatWindowTest, HostileText_IsAppendedAsItStands)
{
	std::string expected;
	std::vector<std::string> texts = hostile_texts();
	texts.push_back("a\rb\r\nc");
	texts.push_back(std::string(65535, 'x'));
	for (const std::string& text : texts) {
		SCOPED_TRACE(text.substr(0, 80));
		expected += text + "\n";
		_Append(text + "\n", 0xff);
		EXPECT_EQ(expected, fWindow->Transcript("chatview"));
	}
}


TEST_F(ChatWindowTest, AfterAnAppend_TheEndIsInView)
{
	BMessage message = built_message(kMsgAppendChat, "text", "line\n");
	for (int line = 0; line < 200; line++)
		fWindow->Window()->PostMessage(&message);
	fWindow->Settle();
	EXPECT_SOON(_ShowsTheEnd());

	fWindow->Find<BTextView>("chatview")->ScrollToOffset(0);
	EXPECT_SOON(!_ShowsTheEnd());
	_Append("the newest\n", 0xff);
	EXPECT_SOON(_ShowsTheEnd());
}


TEST_F(ChatWindowTest, HalfTypedLine_IsSentByReturnAlone)
{
	_Enable(true);
	fWindow->Type("chatinput", "half");
	fWindow->ClickInto("chatview");
	EXPECT_EQ(0, fTarget->CountMessages());
	fWindow->ClickInto("chatinput");
	fWindow->Press(B_TAB);
	EXPECT_EQ(0, fTarget->CountMessages());
	EXPECT_EQ("half", fWindow->Text("chatinput"));

	// Nothing has changed since the focus came back.
	fWindow->ClickInto("chatinput");
	fWindow->Press(B_ENTER);
	fTarget->ExpectOnly(built_message(kMsgSendChat, "text", "half"));
	EXPECT_EQ("", fWindow->Text("chatinput"));
	fWindow->Type("chatinput", "half");
	fWindow->Press(B_ENTER);
	EXPECT_EQ(2, fTarget->CountMessages());
}


TEST_F(ChatWindowTest, HalfTypedLine_OutlivesTheConnection)
{
	_Enable(true);
	fWindow->Type("chatinput", "half");
	// The focus goes and comes back before the window handles anything else.
	BMessage change = built_message(kMsgEnableChat, "enabled", false);
	fWindow->Window()->PostMessage(&change);
	_Enable(true);
	fWindow->Settle();
	EXPECT_EQ(0, fTarget->CountMessages());
	fWindow->Press(B_ENTER);
	fTarget->ExpectOnly(built_message(kMsgSendChat, "text", "half"));
}


TEST_F(ChatWindowTest, LineSentTwice_IsSentTwice)
{
	_Enable(true);
	for (int32 count = 1; count <= 2; count++) {
		fWindow->Type("chatinput", "again");
		fWindow->Press(B_ENTER);
		EXPECT_EQ(count, fTarget->CountMessages());
		EXPECT_EQ("", fWindow->Text("chatinput"));
	}
	fWindow->Press(B_ENTER);
	EXPECT_EQ(2, fTarget->CountMessages());
}


TEST_F(ChatWindowTest, AppendWithASelection_ColorsTheLineAndNothingElse)
{
	_Append("first\nsecond\n", 0xff);
	BTextView* view = fWindow->Find<BTextView>("chatview");
	ASSERT_TRUE(fWindow->Window()->Lock());
	view->Select(0, 13);
	fWindow->Window()->Unlock();
	_Append("red\n", 0xc80000ff);
	_Append("purple\n", 0x800081ff);
	_ExpectColor(0, make_color(0, 0, 0));
	_ExpectColor(12, make_color(0, 0, 0));
	_ExpectColor(13, make_color(200, 0, 0));
	_ExpectColor(16, make_color(200, 0, 0));
	_ExpectColor(17, make_color(128, 0, 129));
	EXPECT_EQ("first\nsecond\nred\npurple\n", fWindow->Transcript("chatview"));
}


TEST_F(ChatWindowTest, Append_LeavesTheSideThatTheUserMoves)
{
	_Append("first\nsecond\n", 0xff);
	BTextView* view = fWindow->Find<BTextView>("chatview");
	fWindow->ClickInto("chatview");
	ASSERT_TRUE(fWindow->Window()->Lock());
	view->Select(5, 5);
	fWindow->Window()->Unlock();
	fWindow->Press(B_LEFT_ARROW, B_SHIFT_KEY);
	_Append("third\n", 0xff);
	fWindow->Press(B_LEFT_ARROW, B_SHIFT_KEY);

	int32 start = 0;
	int32 end = 0;
	view->GetSelection(&start, &end);
	EXPECT_EQ(3, start);
	EXPECT_EQ(5, end);
}


TEST_F(ChatWindowTest, Append_LeavesTheSelectionAlone)
{
	_Append("first\nsecond\n", 0xff);
	BTextView* view = fWindow->Find<BTextView>("chatview");
	view->Select(6, 12);
	_Append("third\n", 0xff);

	int32 start = 0;
	int32 end = 0;
	view->GetSelection(&start, &end);
	EXPECT_EQ(6, start);
	EXPECT_EQ(12, end);
}


TEST_F(ChatWindowTest, Closing_MinimizesAndChatGoesOn)
{
	ExpectMinimizedByClosing();
	_Append("still here\n", 0xff);
	EXPECT_EQ("still here\n", fWindow->Transcript("chatview"));
}


TEST_F(ChatWindowTest, TheTarget_MayBeGone)
{
	_Enable(true);
	fTarget.reset();
	fWindow->SetText("chatinput", "hello");
	fWindow->Invoke("chatinput");
	EXPECT_EQ("", fWindow->Text("chatinput"));
}
