/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "MessageWindow.h"

#include <Font.h>
#include <InterfaceDefs.h>
#include <TextControl.h>
#include <TextView.h>

#include "AppMessages.h"
#include "HostileTexts.h"
#include "WindowTest.h"


static constexpr rgb_color kIncoming = {180, 0, 0, 255};
static constexpr rgb_color kOutgoing = {0, 0, 180, 255};


class MessageWindowTest : public WindowTest {
protected:
	MessageWindowTest()
	{
		Open(new MessageWindow(BRect(200, 200, 550, 420), fTarget.get(), 0x8005, "Ann"));
	}

	MessageWindow* _Conversation() { return static_cast<MessageWindow*>(fWindow->Window()); }
	std::string _Transcript() { return fWindow->Transcript("pmchat"); }

	void _Receive(const char* nick, const std::string& text)
	{
		fWindow->Post(built_message(kMsgPMReceived, "nick", nick, "text", text));
	}

	void _Type(const std::string& text)
	{
		fWindow->SetText("pminput", text.c_str());
		fWindow->Invoke("pminput");
	}

	// Whether all bytes of a range are bold in this color, or else plain in the color of texts.
	void _ExpectStyle(size_t start, size_t end, bool isName, rgb_color color)
	{
		for (size_t offset = start; offset < end; offset++) {
			SCOPED_TRACE(offset);
			BFont font;
			rgb_color found = {1, 2, 3, 4};
			fWindow->Find<BTextView>("pmchat")->GetFontAndColor(static_cast<int32>(offset), &font,
				&found);
			EXPECT_TRUE(found == color);
			EXPECT_EQ(isName, font == *be_bold_font);
			EXPECT_EQ(!isName, font == *be_plain_font);
		}
	}

	// A transcript of one line that begins with the name.
	void _ExpectOneLine(const std::string& name, rgb_color color)
	{
		const size_t nameEnd = name.size() + 2;
		_ExpectStyle(0, nameEnd, true, color);
		_ExpectStyle(nameEnd, _Transcript().size(), false, ui_color(B_DOCUMENT_TEXT_COLOR));
	}
};


TEST_F(MessageWindowTest, AtFirst_IsNamedAfterTheNickAndEmpty)
{
	EXPECT_STREQ("Message — Ann", fWindow->Window()->Title());
	EXPECT_STREQ("Ann", _Conversation()->Nick());
	EXPECT_EQ(0x8005, _Conversation()->Socket());
	EXPECT_EQ("", _Transcript());
	EXPECT_TRUE(fWindow->IsEnabled("pminput"));
	EXPECT_SOON(fWindow->Find<BTextControl>("pminput")->TextView()->IsFocus());
	EXPECT_FALSE(fWindow->Find<BTextView>("pmchat")->IsEditable());
	EXPECT_TRUE(fWindow->Find<BTextView>("pmchat")->DoesWordWrap());
	EXPECT_EQ(0, fTarget->CountMessages());
}


TEST_F(MessageWindowTest, SetNick_RetitlesAndKeepsTheLines)
{
	_Receive("Ann", "hello");
	_Conversation()->SetNick("Bob");
	EXPECT_STREQ("Message — Bob", fWindow->Window()->Title());
	EXPECT_STREQ("Bob", _Conversation()->Nick());
	EXPECT_EQ("Ann: hello\n", _Transcript());
}


TEST_F(MessageWindowTest, Incoming_HasABoldNameAndAPlainText)
{
	_Receive("Zoë", "hi\nthere");
	EXPECT_EQ("Zoë: hi\nthere\n", _Transcript());
	_ExpectOneLine("Zoë", kIncoming);
	EXPECT_EQ(0, fTarget->CountMessages());
}


TEST_F(MessageWindowTest, IncomingWithoutNick_IsShownUnderTheStoredOne)
{
	fWindow->Post(built_message(kMsgPMReceived, "text", "hello"));
	_Conversation()->SetNick("Bob");
	fWindow->Post(built_message(kMsgPMReceived, "text", "again"));
	EXPECT_EQ("Ann: hello\nBob: again\n", _Transcript());
}


TEST_F(MessageWindowTest, IncomingWithoutText_IsAnEmptyLine)
{
	fWindow->Post(kMsgPMReceived);
	EXPECT_EQ("Ann: \n", _Transcript());
}


TEST_F(MessageWindowTest, Typed_IsEchoedAndSentOnce)
{
	_Type("");
	EXPECT_EQ("", _Transcript());
	_Type("hi");
	EXPECT_EQ("You: hi\n", _Transcript());
	_ExpectOneLine("You", kOutgoing);
	EXPECT_EQ("", fWindow->Text("pminput"));
	fTarget->ExpectOnly(
		built_message(kMsgPMSend, "socket", static_cast<uint16>(0x8005), "text", "hi"));
}


TEST_F(MessageWindowTest, Lines_FollowOneAnother)
{
	_Receive("Ann", "one");
	_Type("two");
	_Receive("Ann", "three");
	EXPECT_EQ("Ann: one\nYou: two\nAnn: three\n", _Transcript());
	_ExpectStyle(9, 14, true, kOutgoing);
	_ExpectStyle(18, 23, true, kIncoming);
}


TEST_F(MessageWindowTest, HalfTypedLine_IsSentByReturnAlone)
{
	fWindow->Type("pminput", "half");
	fWindow->ClickInto("pmchat");
	fWindow->ClickInto("pminput");
	fWindow->Press(B_TAB);
	EXPECT_EQ(0, fTarget->CountMessages());
	EXPECT_EQ("", _Transcript());
	EXPECT_EQ("half", fWindow->Text("pminput"));

	fWindow->ClickInto("pminput");
	fWindow->Press(B_ENTER);
	fTarget->ExpectOnly(
		built_message(kMsgPMSend, "socket", static_cast<uint16>(0x8005), "text", "half"));
	EXPECT_EQ("You: half\n", _Transcript());
}


TEST_F(MessageWindowTest, Lines_LeaveTheSelectionAndItsStyleAlone)
{
	_Receive("Ann", "one");
	BTextView* view = fWindow->Find<BTextView>("pmchat");
	ASSERT_TRUE(fWindow->Window()->Lock());
	view->Select(0, 9);
	fWindow->Window()->Unlock();
	_Receive("Ann", "two");
	_Type("three");
	_ExpectStyle(0, 5, true, kIncoming);
	_ExpectStyle(5, 9, false, ui_color(B_DOCUMENT_TEXT_COLOR));
	_ExpectStyle(9, 14, true, kIncoming);
	_ExpectStyle(18, 23, true, kOutgoing);

	int32 start = 1;
	int32 end = 1;
	view->GetSelection(&start, &end);
	EXPECT_EQ(0, start);
	EXPECT_EQ(9, end);
}


TEST_F(MessageWindowTest, HostileNickAndText_AreShownAsTheyStand)
{
	std::string expected;
	for (const std::string& text : hostile_texts()) {
		SCOPED_TRACE(text);
		_Receive(text.c_str(), text);
		expected += text + ": " + text + "\n";
		EXPECT_EQ(expected, _Transcript());
		_Conversation()->SetNick(text.c_str());
		EXPECT_EQ("Message — " + text, fWindow->Window()->Title());
	}
	_Receive("Ann", std::string(65535, 'x'));
	EXPECT_EQ(expected + "Ann: " + std::string(65535, 'x') + "\n", _Transcript());
	EXPECT_EQ(0, fTarget->CountMessages());
}


TEST_F(MessageWindowTest, Incoming_RestoresAMinimizedWindow)
{
	fWindow->Window()->Minimize(true);
	EXPECT_SOON(fWindow->Window()->IsMinimized());
	_Receive("Ann", "wake up");
	EXPECT_FALSE(fWindow->Window()->IsMinimized());
	EXPECT_SOON(fWindow->Window()->IsActive());
}


TEST_F(MessageWindowTest, AfterEveryLine_TheEndIsInView)
{
	for (int i = 0; i < 100; i++)
		_Receive("Ann", "hello");
	const auto showsTheEnd = [this] {
		const BTextView* view = fWindow->Find<BTextView>("pmchat");
		return view->Bounds().Contains(view->PointAt(view->TextLength()));
	};
	EXPECT_TRUE(WaitFor(showsTheEnd));
	fWindow->Find<BTextView>("pmchat")->ScrollToOffset(0);
	EXPECT_SOON(!showsTheEnd());
	_Type("hi");
	EXPECT_TRUE(WaitFor(showsTheEnd));
}


TEST_F(MessageWindowTest, Closing_SaysSoOnceAndEndsTheWindow)
{
	const void* window = fWindow->Window();
	CloseAndWait();
	const BMessage notice = fTarget->OnlyMessage();
	EXPECT_EQ(static_cast<uint32>(kMsgPMWinClosed), notice.what);
	EXPECT_EQ(0x8005, notice.GetUInt16("socket", 0));
	EXPECT_EQ(window, notice.GetPointer("window"));
}
