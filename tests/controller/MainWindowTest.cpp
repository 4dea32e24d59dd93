/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "MainWindow.h"

#include <gtest/gtest.h>

#include <Font.h>
#include <MenuBar.h>
#include <MenuItem.h>
#include <StringView.h>

#include "AgreementWindow.h"
#include "AppMessages.h"
#include "ChatWindow.h"
#include "ConnectWindow.h"
#include "ControllerFixture.h"
#include "HostileTexts.h"
#include "HotlineNotifications.h"
#include "UserListWindow.h"
#include "WaitFor.h"


static BMessage
user_message(uint32 what, uint16 socket, const char* nick)
{
	BMessage message(what);
	message.AddUInt16("socket", socket);
	message.AddUInt16("icon", 128);
	message.AddUInt16("color", 2);
	message.AddString("nick", nick);
	return message;
}


class MainWindowTest : public ControllerFixture {
protected:
	static BMessage _ServerInfo(const char* name)
	{
		BMessage message(kHLServerInfo);
		message.AddString("serverName", name);
		message.AddUInt16("version", 190);
		return message;
	}

	// As after a login to a server with a name.
	void _PretendLogin()
	{
		BMessage info = _ServerInfo("Harbor");
		Post(&info);
		Post(kHLLoggedIn);
		BMessage user = user_message(kHLUserJoined, 1, "one");
		Post(&user);
		ExpectChatBegins("*** Server: Harbor (v190) ***\n", 0, 100, 0);
		ExpectChat("*** Logged in ***\n", 0, 128, 0);
	}
};


TEST_F(MainWindowTest, AtStart_IsNotConnected)
{
	EXPECT_EQ("Palimbra", Title());
	EXPECT_EQ("Not connected", Status());
	EXPECT_EQ("c----", Buttons());
	EXPECT_TRUE(fMain.IsEnabled("tracker"));
	EXPECT_TRUE(fMain.IsEnabled("options"));
	EXPECT_FALSE(MayChat());
	ExpectNoChat();
	BFont font;
	fMain.Find<BStringView>("status")->GetFont(&font);
	EXPECT_EQ(*be_plain_font, font);
}


TEST_F(MainWindowTest, AtStart_ChatAndUsersAreShownButMinimized)
{
	EXPECT_FALSE(fChat.Window()->IsHidden());
	EXPECT_TRUE(fChat.Window()->IsMinimized());
	EXPECT_FALSE(fUsers.Window()->IsHidden());
	EXPECT_TRUE(fUsers.Window()->IsMinimized());
	EXPECT_FALSE(fMain.Window()->IsMinimized());
}


TEST_F(MainWindowTest, AtStart_WindowsHaveTheirPlaces)
{
	EXPECT_EQ(B_TITLED_WINDOW_LOOK, fMain.Window()->Look());
	EXPECT_EQ(uint32(B_NOT_ZOOMABLE | B_AUTO_UPDATE_SIZE_LIMITS), fMain.Window()->Flags());
	EXPECT_EQ(BPoint(100, 60), fMain.Window()->Frame().LeftTop());
	// At least: the buttons may need more.
	EXPECT_GE(fMain.Window()->Frame().Width(), 600);
	EXPECT_EQ(BRect(100, 180, 650, 550), fChat.Window()->Frame());
	EXPECT_EQ(BRect(660, 180, 880, 550), fUsers.Window()->Frame());
}


TEST_F(MainWindowTest, Connected_SaysThatItLogsIn)
{
	Post(kHLConnected);
	ExpectChat("*** Connected — logging in ***\n", 0, 128, 0);
	EXPECT_EQ("Connected — logging in…", Status());
	EXPECT_EQ("c----", Buttons());
}


TEST_F(MainWindowTest, ConnectFailed_SaysWhyAndLeavesThreeButtons)
{
	_PretendLogin();
	Post(kHLConnectFailed, "error", "Could not connect to server");
	ExpectChat("*** Connection failed: Could not connect to server ***\n", 200, 0, 0);
	EXPECT_EQ("Connection failed", Status());
	EXPECT_EQ("c-cuf", Buttons());
	EXPECT_FALSE(MayChat());
}


TEST_F(MainWindowTest, ConnectFailedWithoutError_SaysUnknownError)
{
	Post(kHLConnectFailed);
	ExpectChat("*** Connection failed: Unknown error ***\n", 200, 0, 0);
}


TEST_F(MainWindowTest, LoggedIn_EnablesAndReveals)
{
	Post(kHLLoggedIn);
	ExpectChat("*** Logged in ***\n", 0, 128, 0);
	EXPECT_EQ("Connected", Status());
	EXPECT_EQ("-dcuf", Buttons());
	EXPECT_TRUE(MayChat());
	EXPECT_FALSE(fChat.Window()->IsMinimized());
	EXPECT_FALSE(fUsers.Window()->IsMinimized());
}


TEST_F(MainWindowTest, ConnectionLost_KeepsTheTitleAndClearsTheUsers)
{
	_PretendLogin();
	Post(kHLDisconnected);
	ExpectChat("\n*** Connection lost ***\n", 200, 0, 0);
	EXPECT_EQ("Disconnected", Status());
	EXPECT_EQ("Palimbra — Harbor", Title());
	EXPECT_EQ("c----", Buttons());
	EXPECT_FALSE(MayChat());
	EXPECT_EQ(0, CountUsers());
}


TEST_F(MainWindowTest, Disconnect_ResetsTheTitleAndClearsTheUsers)
{
	_PretendLogin();
	Post(kMsgToolDisconnect);
	ExpectChat("\n*** Disconnected ***\n", 180, 0, 0);
	EXPECT_EQ("Not connected", Status());
	EXPECT_EQ("Palimbra", Title());
	EXPECT_EQ("c----", Buttons());
	EXPECT_FALSE(MayChat());
	EXPECT_EQ(0, CountUsers());
}


TEST_F(MainWindowTest, DisconnectWithoutAConnection_OnlySaysSo)
{
	Post(kMsgToolDisconnect);
	ExpectChat("\n*** Disconnected ***\n", 180, 0, 0);
	EXPECT_EQ("Not connected", Status());
}


TEST_F(MainWindowTest, PoliteQuit_Disconnects)
{
	_PretendLogin();
	Post(kHLPoliteQuit);
	ExpectChat("\n*** Server requested disconnect ***\n", 200, 0, 0);
	EXPECT_EQ("Not connected", Status());
	EXPECT_EQ("Palimbra", Title());
	EXPECT_EQ("c----", Buttons());
	EXPECT_EQ(0, CountUsers());
}


TEST_F(MainWindowTest, Chat_IsBlackAndGetsALineEnd)
{
	Post(kHLChatReceived, "text", " adam:  hello");
	ExpectChat(" adam:  hello\n", 0, 0, 0);
}


TEST_F(MainWindowTest, Broadcast_IsOrange)
{
	Post(kHLBroadcast, "text", "back\rat noon");
	ExpectChat("\n*** Broadcast: back\rat noon ***\n", 200, 100, 0);
}


TEST_F(MainWindowTest, TaskError_IsRed)
{
	Post(kHLTaskError, "error", "Login incorrect");
	ExpectChat("*** Error: Login incorrect ***\n", 200, 0, 0);
	Post(kHLTaskError, "error", "");
	ExpectChat("*** Error:  ***\n", 200, 0, 0);
	Post(kHLTaskError);
	ExpectChat("*** Error: Unknown error ***\n", 200, 0, 0);
}


TEST_F(MainWindowTest, ServerInfo_NamesTheServerEverywhere)
{
	BMessage info = _ServerInfo("Harbor");
	Post(&info);
	ExpectChat("*** Server: Harbor (v190) ***\n", 0, 100, 0);
	EXPECT_EQ("Connected to Harbor", Status());
	EXPECT_EQ("Palimbra — Harbor", Title());
}


TEST_F(MainWindowTest, ServerInfoWithoutVersion_IsVersion0)
{
	Post(kHLServerInfo, "serverName", "Harbor");
	ExpectChat("*** Server: Harbor (v0) ***\n", 0, 100, 0);
}


TEST_F(MainWindowTest, ServerInfoWithoutName_ChangesNothing)
{
	BMessage info = _ServerInfo("");
	Post(&info);
	Post(kHLServerInfo);
	ExpectNoChat();
	EXPECT_EQ("Not connected", Status());
	EXPECT_EQ("Palimbra", Title());
}


TEST_F(MainWindowTest, UsersWhoJoinOrChange_GoToTheList)
{
	BMessage joined = user_message(kHLUserJoined, 7, "before");
	BMessage changed = user_message(kHLUserChanged, 7, "after");
	BMessage other = user_message(kHLUserChanged, 8, "other");
	Post(&joined);
	EXPECT_EQ("before", Nick(0));
	Post(&changed);
	Post(&other);
	ASSERT_EQ(2, CountUsers());
	EXPECT_EQ("after", Nick(0));
	EXPECT_EQ("other", Nick(1));
	ExpectNoChat();
}


TEST_F(MainWindowTest, UserWithoutNick_HasThreeQuestionMarks)
{
	Post(kHLUserJoined);
	ASSERT_EQ(1, CountUsers());
	EXPECT_EQ("???", Nick(0));
	Post(kHLUserJoined, "nick", "");
	EXPECT_EQ("", Nick(0));
}


TEST_F(MainWindowTest, UserWhoLeaves_LeavesTheList)
{
	BMessage joined = user_message(kHLUserJoined, 7, "seven");
	Post(&joined);
	BMessage stranger(kHLUserLeft);
	stranger.AddUInt16("socket", 8);
	Post(&stranger);
	EXPECT_EQ(1, CountUsers());
	BMessage left(kHLUserLeft);
	left.AddUInt16("socket", 7);
	Post(&left);
	EXPECT_EQ(0, CountUsers());
}


TEST_F(MainWindowTest, Agreement_OpensItsWindow)
{
	Post(kHLAgreement, "text", "Be kind.");
	ASSERT_EQ(1, count_windows<AgreementWindow>());
	WindowProbe window(find_window<AgreementWindow>());
	EXPECT_FALSE(window.Window()->IsHidden());
	EXPECT_EQ("Be kind.", window.Transcript("agreementtext"));
	ExpectNoChat();

	const WindowProbe other(
		new AgreementWindow(BRect(150, 150, 600, 500), fMain.Window(), "Be kind."));
	EXPECT_EQ(other.Window()->Frame(), window.Window()->Frame());
}


TEST_F(MainWindowTest, AgreementAccepted_SaysSo)
{
	Post(kHLAgreement, "text", "Be kind.");
	WindowProbe window(find_window<AgreementWindow>());
	window.Invoke("accept");
	window.WaitForEnd();
	Settle();
	ExpectChat("*** Agreement accepted ***\n", 0, 128, 0);
}


TEST_F(MainWindowTest, AgreementClosed_DeclinesAndDisconnects)
{
	_PretendLogin();
	Post(kHLAgreement, "text", "Be kind.");
	WindowProbe window(find_window<AgreementWindow>());
	window.Window()->PostMessage(B_QUIT_REQUESTED);
	window.WaitForEnd();
	Settle();
	ExpectChat("*** Agreement declined — disconnecting ***\n", 200, 0, 0);
	EXPECT_EQ("Not connected", Status());
	EXPECT_EQ("c----", Buttons());
}


TEST_F(MainWindowTest, ConnectButton_OpensAWindowEachTime)
{
	fMain.Invoke("connect");
	fMain.Invoke("connect");
	ASSERT_EQ(2, count_windows<ConnectWindow>());
	WindowProbe second(find_window<ConnectWindow>());
	EXPECT_FALSE(second.Window()->IsHidden());
	{
		const WindowProbe other(new ConnectWindow(BRect(200, 200, 550, 420), fMain.Window()));
		EXPECT_EQ(other.Window()->Frame(), second.Window()->Frame());
	}
	second.Invoke("cancel");
	second.WaitForEnd();
	WindowProbe first(find_window<ConnectWindow>());
	first.Invoke("cancel");
	first.WaitForEnd();
	ExpectNoChat();
}


TEST_F(MainWindowTest, ChatAndUsersCommands_RevealTheirWindows)
{
	Post(kMsgToolChat);
	EXPECT_FALSE(fChat.Window()->IsMinimized());
	EXPECT_TRUE(fUsers.Window()->IsMinimized());
	Post(kMsgToolUsers);
	EXPECT_FALSE(fUsers.Window()->IsMinimized());
	ExpectNoChat();
}


TEST_F(MainWindowTest, ChatLineWithoutAConnection_IsDropped)
{
	Post(kMsgSendChat, "text", "hello");
	ExpectNoChat();
}


TEST_F(MainWindowTest, ServerBanner_IsNotHandled)
{
	Post(kHLServerBanner);
	ExpectNoChat();
	EXPECT_EQ("Not connected", Status());
}


TEST_F(MainWindowTest, HostileTexts_AreShownAsTheyStand)
{
	for (const std::string& text : hostile_texts()) {
		SCOPED_TRACE(text);
		Post(kHLChatReceived, "text", text);
		ExpectChat(text + "\n", 0, 0, 0);
		Post(kHLTaskError, "error", text);
		ExpectChat("*** Error: " + text + " ***\n", 200, 0, 0);
		Post(kHLBroadcast, "text", text);
		ExpectChat("\n*** Broadcast: " + text + " ***\n", 200, 100, 0);
		Post(kHLServerInfo, "serverName", text);
		ExpectChat("*** Server: " + text + " (v0) ***\n", 0, 100, 0);
		EXPECT_EQ("Connected to " + text, Status());
		EXPECT_EQ("Palimbra — " + text, Title());
		Post(kHLUserJoined, "nick", text);
		EXPECT_EQ(text, Nick(0));
	}
}


TEST_F(MainWindowTest, LineOf65535Letters_IsShownWhole)
{
	const std::string text(65535, 'x');
	Post(kHLChatReceived, "text", text);
	ExpectChat(text + "\n", 0, 0, 0);
}


// #pragma mark - Quitting


// The main window grants it and tells the application, whose windows are gone then.
TEST_F(MainWindowTest, QuitItem_EndsAllWindows)
{
	fMain.Window()->PostMessage(fMain.Find<BMenuBar>("menubar")->FindItem("Quit")->Message());
	fMain.WaitForEnd();
	WindowProbe::Settle(be_app);
	EXPECT_EQ(0, be_app->CountWindows());
}


TEST_F(MainWindowTest, QuitOfTheApplication_EndsAllWindows)
{
	be_app->PostMessage(B_QUIT_REQUESTED);
	fMain.WaitForEnd();
	WindowProbe::Settle(be_app);
	EXPECT_EQ(0, be_app->CountWindows());
}


TEST_F(MainWindowTest, Quit_TakesChatAndUsersAlong)
{
	ASSERT_TRUE(fMain.Window()->Lock());
	fMain.Window()->Quit();
	EXPECT_FALSE(fMain.IsAlive());
	EXPECT_FALSE(fChat.IsAlive());
	EXPECT_FALSE(fUsers.IsAlive());
}
