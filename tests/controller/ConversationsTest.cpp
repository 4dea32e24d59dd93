/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Conversations.h"

#include <string>

#include <gtest/gtest.h>

#include <TextView.h>

#include "AppMessages.h"
#include "ControllerFixture.h"
#include "HotlineNotifications.h"
#include "MessageWindow.h"
#include "PartTest.h"
#include "WaitFor.h"
#include "WindowProbe.h"


class ConversationsTest : public PartTest {
protected:
	ConversationsTest()
		: fConversations(fTarget.get())
	{
	}

	~ConversationsTest() override { fConversations.QuitAll(); }

	// Returns the newest conversation when it has what it gets.
	MessageWindow* _Receive(uint16 socket, const char* nick, const std::string& text)
	{
		BMessage message(kHLMsgReceived);
		message.AddString("text", text.c_str());
		if (nick != NULL)
			message.AddString("nick", nick);
		message.AddUInt16("socket", socket);
		EXPECT_TRUE(fConversations.Receive(&message, 7));
		MessageWindow* newest = find_window<MessageWindow>();
		WindowProbe::Settle(newest);
		return newest;
	}

	// What a window with this address says when it closes.
	void _PostClosing(uint16 socket, const void* window)
	{
		BMessage notice(kMsgPMWinClosed);
		notice.AddUInt16("socket", socket);
		if (window != NULL)
			notice.AddPointer("window", window);
		fConversations.Forget(&notice);
	}

	// Does with what the windows have posted as the controller does.
	void _HandOver()
	{
		for (const BMessage& message : Posted()) {
			EXPECT_EQ(7u, message.GetUInt32("connection", 0));
			if (message.what == kHLMsgReceived)
				EXPECT_TRUE(fConversations.Receive(&message, 7));
			else if (message.what == kMsgPMWinClosed)
				fConversations.Forget(&message);
		}
	}

	static int32 _CountOpen() { return count_windows<MessageWindow>(); }

	// Of the newest conversation.
	static std::string _Transcript()
	{
		WindowProbe::Settle(find_window<MessageWindow>());
		return static_cast<BTextView*>(find_window<MessageWindow>()->FindView("pmchat"))->Text();
	}

	Conversations fConversations;
};


TEST_F(ConversationsTest, Users_AreKnownByTheirSocketsAlone)
{
	const MessageWindow* window = _Receive(5, "Ann", "hello");
	ASSERT_EQ(1, _CountOpen());
	EXPECT_STREQ("Message — Ann", window->Title());
	EXPECT_EQ(BRect(200, 200, 550, 420), window->Frame());
	_Receive(5, "Bob", "again");
	ASSERT_EQ(1, _CountOpen());
	EXPECT_STREQ("Message — Bob", window->Title());
	EXPECT_EQ("Ann: hello\nBob: again\n", _Transcript());
	_Receive(6, "Bob", "hello");
	EXPECT_EQ(2, _CountOpen());
	EXPECT_EQ("Bob: hello\n", _Transcript());
	_Receive(7, NULL, "<b>%s\xff\x01");
	EXPECT_EQ("???: <b>%s\xff\x01\n", _Transcript());
}


TEST_F(ConversationsTest, PickedUser_ComesToTheFront)
{
	MessageWindow* first = fConversations.FindOrCreate(5, "Ann", 7);
	const MessageWindow* second = fConversations.FindOrCreate(6, "Bob", 7);
	EXPECT_NE(first, second);
	EXPECT_SOON(second->IsActive());
	first->Minimize(true);
	EXPECT_SOON(first->IsMinimized());
	EXPECT_EQ(first, fConversations.FindOrCreate(5, "Ann", 7));
	EXPECT_EQ(2, _CountOpen());
	EXPECT_FALSE(first->IsMinimized());
	EXPECT_SOON(first->IsActive());
}


TEST_F(ConversationsTest, MessageAheadOfTheClosing_OpensAnewAndStays)
{
	MessageWindow* closed = _Receive(5, "Ann", "before");
	close_silently(closed);
	const MessageWindow* opened = _Receive(5, "Ann", "after");
	ASSERT_EQ(1, _CountOpen());

	// The notice of the first one comes late and does not take the second one along, not even one
	// at its address.
	_PostClosing(5, closed);
	_PostClosing(5, opened);
	_Receive(5, "Ann", "more");
	EXPECT_EQ(1, _CountOpen());
	EXPECT_EQ("Ann: after\nAnn: more\n", _Transcript());
}


// The window has been asked to close and does not know yet: what it gets then is not lost with it.
TEST_F(ConversationsTest, MessageBehindTheClosing_OpensAnew)
{
	_Receive(5, "Ann", "hello")->PostMessage(B_QUIT_REQUESTED);
	BMessage again(kHLMsgReceived);
	again.AddString("text", "again");
	again.AddString("nick", "Ann");
	again.AddUInt16("socket", 5);
	EXPECT_TRUE(fConversations.Receive(&again, 7));
	EXPECT_SOON(count_windows<MessageWindow>() == 0);
	_HandOver();
	ASSERT_EQ(1, _CountOpen());
	_Receive(5, "Ann", "still here");
	EXPECT_EQ(1, _CountOpen());
	EXPECT_EQ("Ann: again\nAnn: still here\n", _Transcript());
}


// Between its two steps it is still there. Then it is the other one that is the user's newest.
TEST_F(ConversationsTest, WindowThatIsClosing_IsNotUsedAgain)
{
	MessageWindow* closing = _Receive(5, "Ann", "hello");
	BMessage quit(B_QUIT_REQUESTED);
	ASSERT_TRUE(closing->Lock());
	closing->DispatchMessage(&quit, closing);
	closing->Unlock();
	MessageWindow* second = fConversations.FindOrCreate(5, "Ann", 7);
	EXPECT_NE(closing, second);
	_PostClosing(5, NULL);
	MessageWindow* third = fConversations.FindOrCreate(5, "Ann", 7);
	EXPECT_NE(closing, third);
	EXPECT_NE(second, third);
	close_silently(second);
}


TEST_F(ConversationsTest, Closing_IsThatOfItsWindowOrElseOfTheNewestOfTheUser)
{
	MessageWindow* forgotten = _Receive(5, "Ann", "hello");
	_PostClosing(6, NULL);
	_PostClosing(6, this);
	_PostClosing(5, this);
	EXPECT_EQ(forgotten, _Receive(5, "Ann", "again"));
	_Receive(6, "Bob", "hello");
	_PostClosing(5, NULL);
	_Receive(6, "Bob", "again");
	EXPECT_EQ(2, _CountOpen());
	_Receive(5, "Ann", "anew");
	EXPECT_EQ(3, _CountOpen());
	EXPECT_EQ("Ann: anew\n", _Transcript());
	close_silently(forgotten);
}


// What the windows say when they close finds nothing, nor does it find those that came after.
TEST_F(ConversationsTest, CloseAll_LeavesWhatIsOpenedAfterwards)
{
	_Receive(5, "Ann", "before");
	close_silently(_Receive(6, "Bob", "before"));
	fConversations.CloseAll();
	EXPECT_SOON(count_windows<MessageWindow>() == 0);
	_Receive(5, "Ann", "after");
	_HandOver();
	_Receive(5, "Ann", "more");
	EXPECT_EQ(1, _CountOpen());
	EXPECT_EQ("Ann: after\nAnn: more\n", _Transcript());
}


// Who has a window goes on speaking there, and the user may open as many as there are users.
TEST_F(ConversationsTest, StrangersBeyondAHundred_OpenNoWindow)
{
	BMessage message(kHLMsgReceived);
	message.AddString("text", "hello");
	message.AddString("nick", "Ann");
	for (uint16 socket = 1; socket <= 100; socket++) {
		BMessage of(message);
		of.AddUInt16("socket", socket);
		EXPECT_TRUE(fConversations.Receive(&of, 7));
	}
	EXPECT_EQ(100, _CountOpen());
	BMessage known(message);
	known.AddUInt16("socket", 1);
	BMessage stranger(message);
	stranger.AddUInt16("socket", 101);
	EXPECT_TRUE(fConversations.Receive(&known, 7));
	EXPECT_FALSE(fConversations.Receive(&stranger, 7));
	EXPECT_EQ(100, _CountOpen());
	EXPECT_NE(nullptr, fConversations.FindOrCreate(102, "Bob", 7));
	EXPECT_TRUE(fConversations.Receive(&known, 7));
	EXPECT_FALSE(fConversations.Receive(&stranger, 7));

	close_silently(open_windows<MessageWindow>()[0]);
	close_silently(open_windows<MessageWindow>()[0]);
	EXPECT_TRUE(fConversations.Receive(&stranger, 7));
	EXPECT_EQ(100, _CountOpen());
}
