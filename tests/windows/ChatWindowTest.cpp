/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ChatWindow.h"

#include <gtest/gtest.h>

#include <Message.h>
#include <ScrollView.h>
#include <TextControl.h>
#include <TextView.h>

#include "AppMessages.h"
#include "HostileTexts.h"
#include "MessageRecorder.h"
#include "WaitFor.h"
#include "WindowProbe.h"


class ChatWindowTest : public testing::Test {
protected:
	ChatWindowTest()
		: fTarget(new MessageRecorder()),
		  fWindow(new ChatWindow(BRect(100, 180, 650, 550), fTarget.get()))
	{
		fWindow.Window()->Show();
	}

	void _Append(const std::string& text, uint32 color)
	{
		BMessage message(kMsgAppendChat);
		message.AddString("text", text.c_str());
		message.AddInt32("color", static_cast<int32>(color));
		fWindow.Post(&message);
	}

	void _Enable(bool enabled)
	{
		BMessage message(kMsgEnableChat);
		message.AddBool("enabled", enabled);
		fWindow.Post(&message);
	}

	rgb_color _ColorAt(int32 offset)
	{
		rgb_color color = {1, 2, 3, 4};
		fWindow.Find<BTextView>("chatview")->GetFontAndColor(offset, NULL, &color);
		return color;
	}

	// Whether the end of the transcript is in view.
	bool _ShowsTheEnd()
	{
		const BTextView* view = fWindow.Find<BTextView>("chatview");
		float height = 0;
		const BPoint end = view->PointAt(view->TextLength(), &height);
		return end.y >= view->Bounds().top && end.y + height <= view->Bounds().bottom + 1;
	}

	RecorderOwner fTarget;
	WindowProbe fWindow;
};


TEST_F(ChatWindowTest, AtFirst_IsEmptyAndDisabled)
{
	EXPECT_STREQ("Chat", fWindow.Window()->Title());
	EXPECT_EQ("", fWindow.Transcript("chatview"));
	EXPECT_EQ("", fWindow.Text("chatinput"));
	EXPECT_FALSE(fWindow.IsEnabled("chatinput"));
}


TEST_F(ChatWindowTest, AtFirst_IsADocumentThatFollowsItsLayout)
{
	EXPECT_EQ(B_DOCUMENT_WINDOW_LOOK, fWindow.Window()->Look());
	EXPECT_EQ(B_NORMAL_WINDOW_FEEL, fWindow.Window()->Feel());
	EXPECT_EQ(uint32(B_AUTO_UPDATE_SIZE_LIMITS), fWindow.Window()->Flags());
	const BScrollView* scrollView = fWindow.Find<BScrollView>("chatscroll");
	EXPECT_EQ(fWindow.Find<BTextView>("chatview"), scrollView->Target());
	EXPECT_EQ(B_FANCY_BORDER, scrollView->Border());
}


TEST_F(ChatWindowTest, TheTranscript_CanBeSelectedButNotEdited)
{
	const BTextView* view = fWindow.Find<BTextView>("chatview");
	EXPECT_FALSE(view->IsEditable());
	EXPECT_TRUE(view->IsSelectable());
	EXPECT_TRUE(view->IsStylable());
	EXPECT_TRUE(view->DoesWordWrap());
}


TEST_F(ChatWindowTest, EnterOnAnEmptyLine_SendsNothing)
{
	_Enable(true);
	fWindow.Invoke("chatinput");
	EXPECT_EQ(0, fTarget->CountMessages());
	EXPECT_EQ("", fWindow.Text("chatinput"));
}


TEST_F(ChatWindowTest, Enter_SendsTheLineOnceAsTypedAndClearsIt)
{
	_Enable(true);
	fWindow.SetText("chatinput", "  hello, world ");
	fWindow.Invoke("chatinput");

	const BMessage request = fTarget->OnlyMessage();
	EXPECT_EQ(uint32(kMsgSendChat), request.what);
	EXPECT_STREQ("  hello, world ", request.GetString("text"));
	EXPECT_EQ("", fWindow.Text("chatinput"));
}


TEST_F(ChatWindowTest, HostileLine_IsSentAsTyped)
{
	_Enable(true);
	for (const std::string& text : hostile_texts()) {
		SCOPED_TRACE(text);
		fWindow.SetText("chatinput", text.c_str());
		fWindow.Invoke("chatinput");
		EXPECT_EQ(text, fTarget->Messages().back().GetString("text"));
	}
}


TEST_F(ChatWindowTest, Enabling_SwitchesTheLineAndFocusesIt)
{
	_Enable(true);
	EXPECT_TRUE(fWindow.IsEnabled("chatinput"));
	EXPECT_TRUE(fWindow.Find<BTextControl>("chatinput")->IsFocus()
		|| fWindow.Find<BTextControl>("chatinput")->TextView()->IsFocus());

	_Enable(false);
	EXPECT_FALSE(fWindow.IsEnabled("chatinput"));
}


TEST_F(ChatWindowTest, EnablingWithoutTheField_Disables)
{
	_Enable(true);
	fWindow.Post(kMsgEnableChat);
	EXPECT_FALSE(fWindow.IsEnabled("chatinput"));
}


TEST_F(ChatWindowTest, AppendWithoutText_ChangesNothing)
{
	_Append("line\n", 0xff);
	BMessage message(kMsgAppendChat);
	message.AddInt32("color", 0xff);
	fWindow.Post(&message);
	EXPECT_EQ("line\n", fWindow.Transcript("chatview"));
}


TEST_F(ChatWindowTest, AppendWithoutColor_IsBlack)
{
	_Append("green\n", 0x008000ff);
	BMessage message(kMsgAppendChat);
	message.AddString("text", "plain\n");
	fWindow.Post(&message);

	EXPECT_EQ("green\nplain\n", fWindow.Transcript("chatview"));
	const rgb_color color = _ColorAt(7);
	EXPECT_EQ(0, color.red);
	EXPECT_EQ(0, color.green);
	EXPECT_EQ(0, color.blue);
}


TEST_F(ChatWindowTest, Append_TakesItsColorFromFourBytes)
{
	_Append("red\n", 0xc80000ff);
	_Append("purple\n", 0x800081ff);

	const rgb_color red = _ColorAt(1);
	EXPECT_EQ(200, red.red);
	EXPECT_EQ(0, red.green);
	EXPECT_EQ(0, red.blue);
	EXPECT_EQ(255, red.alpha);
	const rgb_color purple = _ColorAt(5);
	EXPECT_EQ(128, purple.red);
	EXPECT_EQ(0, purple.green);
	EXPECT_EQ(129, purple.blue);
}


TEST_F(ChatWindowTest, Append_AddsTheTextAsItStands)
{
	_Append("no line end", 0xff);
	_Append("\n*** framed ***\n", 0xff);
	EXPECT_EQ("no line end\n*** framed ***\n", fWindow.Transcript("chatview"));
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
		EXPECT_EQ(expected, fWindow.Transcript("chatview"));
	}
}


TEST_F(ChatWindowTest, AfterAnAppend_TheEndIsInView)
{
	for (int line = 0; line < 200; line++) {
		BMessage message(kMsgAppendChat);
		message.AddString("text", "line\n");
		fWindow.Window()->PostMessage(&message);
	}
	fWindow.Settle();
	EXPECT_TRUE(WaitFor([this] {
		return _ShowsTheEnd();
	}));

	fWindow.Find<BTextView>("chatview")->ScrollToOffset(0);
	EXPECT_TRUE(WaitFor([this] {
		return !_ShowsTheEnd();
	}));
	_Append("the newest\n", 0xff);
	EXPECT_TRUE(WaitFor([this] {
		return _ShowsTheEnd();
	}));
}


TEST_F(ChatWindowTest, Append_LeavesTheSelectionAlone)
{
	_Append("first\nsecond\n", 0xff);
	BTextView* view = fWindow.Find<BTextView>("chatview");
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
	fWindow.Post(B_QUIT_REQUESTED);
	EXPECT_TRUE(fWindow.IsAlive());
	EXPECT_TRUE(WaitFor([this] {
		return fWindow.Window()->IsMinimized();
	}));

	_Append("still here\n", 0xff);
	EXPECT_EQ("still here\n", fWindow.Transcript("chatview"));
}


TEST_F(ChatWindowTest, Layout_IsTidyAtTwoSizes)
{
	fWindow.ExpectTidyAtTwoSizes();
}


TEST_F(ChatWindowTest, TheTarget_MayBeGone)
{
	_Enable(true);
	fTarget.reset();
	fWindow.SetText("chatinput", "hello");
	fWindow.Invoke("chatinput");
	EXPECT_EQ("", fWindow.Text("chatinput"));
}
