/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <gtest/gtest.h>

#include <Message.h>
#include <TextView.h>

#include "AppMessages.h"
#include "ConnectedFixture.h"
#include "HostileTexts.h"
#include "HotlineNotifications.h"
#include "MessageWindow.h"
#include "WaitFor.h"
#include "WireBytes.h"


class PrivateMessagesTest : public ConnectedFixture {
protected:
	void _Receive(uint16 socket, const char* nick, const std::string& text)
	{
		BMessage message(kHLMsgReceived);
		message.AddString("text", text.c_str());
		if (nick != NULL)
			message.AddString("nick", nick);
		message.AddUInt16("socket", socket);
		Post(&message);
		if (find_window<MessageWindow>() != NULL)
			WindowProbe::Settle(find_window<MessageWindow>());
	}

	void _PostWithSocket(uint32 what, uint16 socket, const char* field, const char* text)
	{
		BMessage message(what);
		message.AddUInt16("socket", socket);
		message.AddString(field, text);
		Post(&message);
	}

	static int32 _CountOpen() { return count_windows<MessageWindow>(); }

	// Without a word to the controller, as if that stood in its queue.
	static void _CloseSilently(MessageWindow* window)
	{
		ASSERT_TRUE(window->Lock());
		window->Quit();
	}

	// What a window with this address says when it closes.
	void _PostClosing(uint16 socket, const void* window)
	{
		BMessage notice(kMsgPMWinClosed);
		notice.AddUInt16("socket", socket);
		if (window != NULL)
			notice.AddPointer("window", window);
		Post(&notice);
	}

	// Of the newest conversation.
	static std::string _Transcript()
	{
		return static_cast<BTextView*>(find_window<MessageWindow>()->FindView("pmchat"))->Text();
	}
};


TEST_F(PrivateMessagesTest, FirstMessage_OpensAConversation)
{
	_Receive(5, "Ann", "hello");
	ASSERT_EQ(1, _CountOpen());
	EXPECT_STREQ("Message — Ann", find_window<MessageWindow>()->Title());
	EXPECT_EQ(BRect(200, 200, 550, 420), find_window<MessageWindow>()->Frame());
	EXPECT_EQ("Ann: hello\n", _Transcript());
	ExpectNoChat();
}


TEST_F(PrivateMessagesTest, SameSocketOtherNick_StaysOneConversation)
{
	_Receive(5, "Ann", "hello");
	_Receive(5, "Bob", "again");
	ASSERT_EQ(1, _CountOpen());
	EXPECT_STREQ("Message — Bob", find_window<MessageWindow>()->Title());
	EXPECT_EQ("Ann: hello\nBob: again\n", _Transcript());
}


TEST_F(PrivateMessagesTest, OtherSocketSameNick_IsAnotherConversation)
{
	_Receive(5, "Ann", "hello");
	_Receive(6, "Ann", "hello");
	EXPECT_EQ(2, _CountOpen());
}


TEST_F(PrivateMessagesTest, MessageOfTheServer_IsShownInTheChat)
{
	_Receive(0, "Ann", "closing soon");
	ExpectChat("\n*** Server message ***\nclosing soon\n", 128, 0, 128);
	EXPECT_EQ(0, _CountOpen());
}


TEST_F(PrivateMessagesTest, MessageWithoutNick_ComesFromSomebody)
{
	_Receive(5, NULL, "hello");
	EXPECT_EQ("???: hello\n", _Transcript());
}


TEST_F(PrivateMessagesTest, HostileNickAndText_AreShownAsTheyStand)
{
	uint16 socket = 1;
	for (const std::string& text : hostile_texts()) {
		SCOPED_TRACE(text);
		_Receive(socket++, text.c_str(), text);
		EXPECT_EQ("Message — " + text, find_window<MessageWindow>()->Title());
		EXPECT_EQ(text + ": " + text + "\n", _Transcript());
	}
}


TEST_F(PrivateMessagesTest, PickedUser_GetsAConversation)
{
	_PostWithSocket(kMsgOpenPM, 5, "nick", "Ann");
	_PostWithSocket(kMsgOpenPM, 5, "nick", "Ann");
	EXPECT_EQ(1, _CountOpen());
	_PostWithSocket(kMsgOpenPM, 0, "nick", "nobody");
	EXPECT_EQ(1, _CountOpen());
}


TEST_F(PrivateMessagesTest, PickedUserWithoutNick_HasThreeQuestionMarks)
{
	BMessage pick(kMsgOpenPM);
	pick.AddUInt16("socket", 5);
	Post(&pick);
	ASSERT_EQ(1, _CountOpen());
	EXPECT_STREQ("Message — ???", find_window<MessageWindow>()->Title());
}


TEST_F(PrivateMessagesTest, PickedUser_ComesToTheFront)
{
	_PostWithSocket(kMsgOpenPM, 5, "nick", "Ann");
	const BWindow* first = find_window<MessageWindow>();
	_PostWithSocket(kMsgOpenPM, 6, "nick", "Bob");
	const BWindow* second = find_window<MessageWindow>();
	EXPECT_TRUE(WaitFor([second] {
		return second->IsActive();
	}));
	_PostWithSocket(kMsgOpenPM, 5, "nick", "Ann");
	EXPECT_TRUE(WaitFor([first] {
		return first->IsActive();
	}));
}


TEST_F(PrivateMessagesTest, PickedUser_RestoresAMinimizedConversation)
{
	_PostWithSocket(kMsgOpenPM, 5, "nick", "Ann");
	BWindow* window = find_window<MessageWindow>();
	window->Minimize(true);
	EXPECT_TRUE(WaitFor([window] {
		return window->IsMinimized();
	}));
	_PostWithSocket(kMsgOpenPM, 5, "nick", "Ann");
	EXPECT_FALSE(window->IsMinimized());
}


TEST_F(PrivateMessagesTest, ClosedConversation_IsOpenedAnew)
{
	_Receive(5, "Ann", "before");
	find_window<MessageWindow>()->PostMessage(B_QUIT_REQUESTED);
	EXPECT_TRUE(WaitFor([] {
		return _CountOpen() == 0;
	}));
	_Receive(5, "Ann", "after");
	ASSERT_EQ(1, _CountOpen());
	EXPECT_EQ("Ann: after\n", _Transcript());
}


TEST_F(PrivateMessagesTest, MessageAheadOfTheClosing_OpensAnewAndStays)
{
	_Receive(5, "Ann", "before");
	MessageWindow* closed = find_window<MessageWindow>();
	_CloseSilently(closed);
	_Receive(5, "Ann", "after");
	ASSERT_EQ(1, _CountOpen());
	EXPECT_EQ("Ann: after\n", _Transcript());

	// The notice of the first one comes late and does not take the second one along, not even one
	// at its address.
	_PostClosing(5, closed);
	_PostClosing(5, find_window<MessageWindow>());
	_Receive(5, "Ann", "more");
	EXPECT_EQ(1, _CountOpen());
	EXPECT_EQ("Ann: after\nAnn: more\n", _Transcript());
}


// The window has been asked to close and does not know yet: what it gets then is not lost with it.
TEST_F(PrivateMessagesTest, MessageBehindTheClosing_OpensAnew)
{
	_Receive(5, "Ann", "hello");
	MessageWindow* closing = find_window<MessageWindow>();
	const BMessenger closed(closing);
	BMessage again(kHLMsgReceived);
	again.AddString("text", "again");
	again.AddString("nick", "Ann");
	again.AddUInt16("socket", 5);
	closing->PostMessage(B_QUIT_REQUESTED);
	ASSERT_TRUE(fMain.Window()->Lock());
	fMain.Window()->MessageReceived(&again);
	fMain.Window()->Unlock();

	EXPECT_TRUE(WaitFor([&closed] {
		return !closed.IsValid();
	}));
	Settle();
	ASSERT_EQ(1, _CountOpen());
	WindowProbe::Settle(find_window<MessageWindow>());
	EXPECT_EQ("Ann: again\n", _Transcript());
	_Receive(5, "Ann", "still here");
	ASSERT_EQ(1, _CountOpen());
	EXPECT_EQ("Ann: again\nAnn: still here\n", _Transcript());
}


TEST_F(PrivateMessagesTest, ClosingOfAStranger_ChangesNothing)
{
	_Receive(5, "Ann", "hello");
	_PostClosing(6, NULL);
	_PostClosing(6, this);
	_PostClosing(5, this);
	_Receive(5, "Ann", "again");
	EXPECT_EQ(1, _CountOpen());
}


TEST_F(PrivateMessagesTest, ClosingWithoutItsWindow_IsThatOfTheUser)
{
	_Receive(5, "Ann", "hello");
	MessageWindow* forgotten = find_window<MessageWindow>();
	_Receive(6, "Bob", "hello");
	_PostClosing(5, NULL);
	_Receive(6, "Bob", "again");
	EXPECT_EQ(2, _CountOpen());
	_Receive(5, "Ann", "again");
	EXPECT_EQ(3, _CountOpen());
	EXPECT_EQ("Ann: again\n", _Transcript());
	_CloseSilently(forgotten);
}


TEST_F(PrivateMessagesTest, Disconnect_ClosesEveryConversation)
{
	_Receive(5, "Ann", "hello");
	_Receive(6, "Bob", "hello");
	_Receive(7, "Cem", "hello");
	_CloseSilently(find_window<MessageWindow>());
	Post(kMsgToolDisconnect);
	EXPECT_TRUE(WaitFor([] {
		return _CountOpen() == 0;
	}));
	_Receive(5, "Ann", "again");
	EXPECT_EQ(1, _CountOpen());
}


// What the windows say that a disconnect closes stands behind the next message then.
TEST_F(PrivateMessagesTest, ClosingFromBeforeADisconnect_LeavesTheNewConversation)
{
	_Receive(5, "Ann", "before");
	fMain.Window()->PostMessage(kMsgToolDisconnect);
	_Receive(5, "Ann", "after");
	EXPECT_TRUE(WaitFor([] {
		return _CountOpen() == 1;
	}));
	Settle();
	_Receive(5, "Ann", "more");
	EXPECT_EQ(1, _CountOpen());
	EXPECT_EQ("Ann: after\nAnn: more\n", _Transcript());
}


TEST_F(PrivateMessagesTest, LostLine_LeavesEveryConversation)
{
	LogIn();
	_Receive(5, "Ann", "hello");
	fServer.Hangup();
	AwaitChat("\n*** Connection lost ***\n", 200, 0, 0);
	WindowProbe::Settle(be_app);
	ASSERT_EQ(1, _CountOpen());
	_Receive(5, "Ann", "still here");
	EXPECT_EQ("Ann: hello\nAnn: still here\n", _Transcript());
}


TEST_F(PrivateMessagesTest, Connecting_ClosesEveryConversation)
{
	LogIn();
	_Receive(5, "Ann", "hello");
	LogIn();
	EXPECT_TRUE(WaitFor([] {
		return _CountOpen() == 0;
	}));
}


TEST_F(PrivateMessagesTest, TypedMessage_ReachesTheServer)
{
	LogIn();
	_Receive(5, "Ann", "hello");
	WindowProbe window(find_window<MessageWindow>());
	window.SetText("pminput", "hi");
	window.Invoke("pminput");
	const WireTransaction sent = fServer.ReadRequest(108);
	EXPECT_EQ(wire16(5), sent.Field(103));
	EXPECT_EQ("hi", sent.Field(101));
}


TEST_F(PrivateMessagesTest, NobodyOrNothing_IsNotSent)
{
	_PostWithSocket(kMsgPMSend, 5, "text", "not connected");
	LogIn();
	_PostWithSocket(kMsgPMSend, 0, "text", "to nobody");
	_PostWithSocket(kMsgPMSend, 5, "text", "");
	_PostWithSocket(kMsgPMSend, 5, "text", "next");
	EXPECT_EQ("next", fServer.ReadRequest(108).Field(101));
}


TEST_F(PrivateMessagesTest, MessageFromTheWire_OpensAConversation)
{
	LogIn();
	fServer.Send(104, {{103, wire16(5)}, {102, "Ann"}, {101, "one\rtwo"}});
	EXPECT_TRUE(WaitFor([] {
		return _CountOpen() == 1 && !_Transcript().empty();
	}));
	EXPECT_EQ("Ann: one\ntwo\n", _Transcript());
}
