/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ConnectionMark.h"

#include "AgreementWindow.h"
#include "AppMessages.h"
#include "ChatWindow.h"
#include "FileListWindow.h"
#include "HotlineNotifications.h"
#include "MessageWindow.h"
#include "UserListWindow.h"
#include "WindowTest.h"


static const uint32 kConnection = 0x80000007;
static const BRect kFrame(100, 100, 400, 300);


/*!	What a window posts says which connection it was meant for. */
class ConnectionMarkTest : public WindowTest {
protected:
	void _ExpectPosted(uint32 what)
	{
		const BMessage posted = fTarget->OnlyMessage();
		EXPECT_EQ(what, posted.what);
		EXPECT_EQ(kConnection, posted.GetUInt32("connection", 0));
	}
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
	Open(new AgreementWindow(kFrame, fTarget.get(), "Be kind.", kConnection));
	CloseAndWait();
	_ExpectPosted(kMsgDeclineAgreement);
}


TEST_F(ConnectionMarkTest, PrivateMessage_HasIt)
{
	Open(new MessageWindow(kFrame, fTarget.get(), 5, "Ann", kConnection));
	fWindow->SetText("pminput", "hi");
	fWindow->Invoke("pminput");
	_ExpectPosted(kMsgPMSend);
}


TEST_F(ConnectionMarkTest, MessageToAClosingConversation_GoesBackWithIt)
{
	Open(new MessageWindow(kFrame, fTarget.get(), 5, "Ann", kConnection));
	BMessage received = built_message(kMsgPMReceived, "text", "hello");
	// As when the close box is clicked twice.
	fWindow->Window()->PostMessage(B_QUIT_REQUESTED);
	fWindow->Window()->PostMessage(B_QUIT_REQUESTED);
	fWindow->Window()->PostMessage(&received);
	fWindow->WaitForEnd();

	const std::vector<BMessage> posted = fTarget->Messages();
	ASSERT_EQ(2u, posted.size());
	const BMessage returned = built_message(kHLMsgReceived, "text", "hello", "nick", "Ann",
		"socket", static_cast<uint16>(5));
	EXPECT_EQ(MessageRecorder::Describe(&returned), MessageRecorder::Describe(&posted[0]));
	EXPECT_EQ(kConnection, ConnectionOf(&posted[0]));
	EXPECT_EQ(static_cast<uint32>(kMsgPMWinClosed), posted[1].what);
	EXPECT_EQ(kConnection, ConnectionOf(&posted[1]));
}


TEST_F(ConnectionMarkTest, FileRequest_HasIt)
{
	Open(new FileListWindow(kFrame, fTarget.get(), "", "", kConnection));
	fWindow->Post(built_message(kMsgFileEntry, "name", "read me"));
	InvokeRow("filelist", 0);
	_ExpectPosted(kMsgDownloadFile);
}


TEST_F(ConnectionMarkTest, ChatLine_HasThatForWhichTheChatWasEnabled)
{
	Open(new ChatWindow(kFrame, fTarget.get()));
	fWindow->Post(built_message(kMsgEnableChat, "enabled", true, "connection", kConnection));
	fWindow->SetText("chatinput", "hi");
	fWindow->Invoke("chatinput");
	_ExpectPosted(kMsgSendChat);
}


// The chat was disabled when the line had been typed, but not sent yet.
TEST_F(ConnectionMarkTest, ChatLineSentLate_HasThatForWhichItWasTyped)
{
	Open(new ChatWindow(kFrame, fTarget.get()));
	fWindow->Post(built_message(kMsgEnableChat, "enabled", true, "connection", kConnection));
	fWindow->SetText("chatinput", "hi");
	fWindow->Post(kMsgEnableChat);
	fWindow->Post(kMsgSendChat);
	_ExpectPosted(kMsgSendChat);
}


TEST_F(ConnectionMarkTest, ClosingFileList_HasIt)
{
	Open(new FileListWindow(kFrame, fTarget.get(), "", "", kConnection));
	CloseAndWait();
	_ExpectPosted(kMsgFileWinClosed);
}


TEST_F(ConnectionMarkTest, PickedUser_HasThatOfTheList)
{
	Open(new UserListWindow(kFrame, fTarget.get()));
	fWindow->Post(
		built_message(kMsgAddUser, "socket", static_cast<uint16>(5), "connection", kConnection));
	InvokeRow("userlist", 0);
	_ExpectPosted(kMsgOpenPM);
}
