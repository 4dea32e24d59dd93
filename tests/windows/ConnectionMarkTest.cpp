/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ConnectionMark.h"

#include <gtest/gtest.h>

#include <ListView.h>
#include <Message.h>

#include "AgreementWindow.h"
#include "AppMessages.h"
#include "ChatWindow.h"
#include "FileListWindow.h"
#include "HotlineNotifications.h"
#include "MessageRecorder.h"
#include "MessageWindow.h"
#include "UserListWindow.h"
#include "WindowProbe.h"


static const uint32 kConnection = 0x80000007;
static const BRect kFrame(100, 100, 400, 300);


/*!	What a window posts says which connection it was meant for. */
class ConnectionMarkTest : public testing::Test {
protected:
	ConnectionMarkTest()
		: fTarget(new MessageRecorder())
	{
	}

	void _ExpectPosted(uint32 what)
	{
		const BMessage posted = fTarget->OnlyMessage();
		EXPECT_EQ(what, posted.what);
		EXPECT_EQ(kConnection, posted.GetUInt32("connection", 0));
	}

	RecorderOwner fTarget;
};


TEST_F(ConnectionMarkTest, Message_BelongsToOneConnectionOrToNone)
{
	BMessage message('test');
	EXPECT_EQ(0u, ConnectionOf(&message));
	EXPECT_FALSE(IsOfOtherConnection(&message, 0));
	EXPECT_FALSE(IsOfOtherConnection(&message, 5));
	AddConnection(&message, 0);
	EXPECT_TRUE(message.IsEmpty());

	AddConnection(&message, 5);
	EXPECT_EQ(5u, ConnectionOf(&message));
	EXPECT_FALSE(IsOfOtherConnection(&message, 5));
	EXPECT_TRUE(IsOfOtherConnection(&message, 6));
	EXPECT_TRUE(IsOfOtherConnection(&message, 0));
}


TEST_F(ConnectionMarkTest, AnswerToAnAgreement_HasIt)
{
	WindowProbe window(new AgreementWindow(kFrame, fTarget.get(), "Be kind.", kConnection));
	window.Window()->Show();
	window.Window()->PostMessage(B_QUIT_REQUESTED);
	window.WaitForEnd();
	_ExpectPosted(kMsgDeclineAgreement);
}


TEST_F(ConnectionMarkTest, PrivateMessage_HasIt)
{
	WindowProbe window(new MessageWindow(kFrame, fTarget.get(), 5, "Ann", kConnection));
	window.Window()->Show();
	window.SetText("pminput", "hi");
	window.Invoke("pminput");
	_ExpectPosted(kMsgPMSend);
}


TEST_F(ConnectionMarkTest, MessageToAClosingConversation_GoesBackWithIt)
{
	WindowProbe window(new MessageWindow(kFrame, fTarget.get(), 5, "Ann", kConnection));
	window.Window()->Show();
	BMessage received(kMsgPMReceived);
	received.AddString("text", "hello");
	// As when the close box is clicked twice.
	window.Window()->PostMessage(B_QUIT_REQUESTED);
	window.Window()->PostMessage(B_QUIT_REQUESTED);
	window.Window()->PostMessage(&received);
	window.WaitForEnd();

	const std::vector<BMessage> posted = fTarget->Messages();
	ASSERT_EQ(2u, posted.size());
	EXPECT_EQ(uint32(kHLMsgReceived), posted[0].what);
	EXPECT_STREQ("hello", posted[0].GetString("text"));
	EXPECT_STREQ("Ann", posted[0].GetString("nick"));
	EXPECT_EQ(5, posted[0].GetUInt16("socket", 0));
	EXPECT_EQ(kConnection, ConnectionOf(&posted[0]));
	EXPECT_EQ(uint32(kMsgPMWinClosed), posted[1].what);
	EXPECT_EQ(kConnection, ConnectionOf(&posted[1]));
}


TEST_F(ConnectionMarkTest, FileRequest_HasIt)
{
	WindowProbe window(new FileListWindow(kFrame, fTarget.get(), "", "", kConnection));
	window.Window()->Show();
	BMessage listing(kMsgFileEntry);
	listing.AddString("name", "read me");
	window.Post(&listing);
	BListView* list = window.Find<BListView>("filelist");
	list->Select(0);
	list->Invoke();
	window.Settle();
	_ExpectPosted(kMsgDownloadFile);
}


TEST_F(ConnectionMarkTest, ChatLine_HasThatForWhichTheChatWasEnabled)
{
	WindowProbe window(new ChatWindow(kFrame, fTarget.get()));
	window.Window()->Show();
	BMessage enable(kMsgEnableChat);
	enable.AddBool("enabled", true);
	AddConnection(&enable, kConnection);
	window.Post(&enable);
	window.SetText("chatinput", "hi");
	window.Invoke("chatinput");
	_ExpectPosted(kMsgSendChat);
}


// The chat was disabled when the line had been typed, but not sent yet.
TEST_F(ConnectionMarkTest, ChatLineSentLate_HasThatForWhichItWasTyped)
{
	WindowProbe window(new ChatWindow(kFrame, fTarget.get()));
	window.Window()->Show();
	BMessage enable(kMsgEnableChat);
	enable.AddBool("enabled", true);
	AddConnection(&enable, kConnection);
	window.Post(&enable);
	window.SetText("chatinput", "hi");
	window.Post(kMsgEnableChat);
	window.Post(kMsgSendChat);
	_ExpectPosted(kMsgSendChat);
}


TEST_F(ConnectionMarkTest, ClosingFileList_HasIt)
{
	WindowProbe window(new FileListWindow(kFrame, fTarget.get(), "", "", kConnection));
	window.Window()->Show();
	window.Window()->PostMessage(B_QUIT_REQUESTED);
	window.WaitForEnd();
	_ExpectPosted(kMsgFileWinClosed);
}


TEST_F(ConnectionMarkTest, PickedUser_HasThatOfTheList)
{
	WindowProbe window(new UserListWindow(kFrame, fTarget.get()));
	window.Window()->Show();
	BMessage user(kMsgAddUser);
	user.AddUInt16("socket", 5);
	AddConnection(&user, kConnection);
	window.Post(&user);
	BListView* list = window.Find<BListView>("userlist");
	list->Select(0);
	list->Invoke();
	window.Settle();
	_ExpectPosted(kMsgOpenPM);
}
