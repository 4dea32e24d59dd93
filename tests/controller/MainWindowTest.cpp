/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "MainWindow.h"

#include <gtest/gtest.h>

#include <MenuBar.h>
#include <MenuItem.h>

#include "AgreementWindow.h"
#include "AppMessages.h"
#include "ControllerFixture.h"
#include "FileListWindow.h"
#include "HostileTexts.h"
#include "HotlineNotifications.h"
#include "MessageWindow.h"


/*!	What becomes of each message, without a server. */
class MainWindowTest : public ControllerFixture {
protected:
	void _PostUser(uint32 what, uint16 socket, const char* nick)
	{
		BMessage message(what);
		message.AddUInt16("socket", socket);
		message.AddUInt16("icon", 128);
		message.AddUInt16("color", 2);
		message.AddString("nick", nick);
		Post(&message);
	}

	// As after a login to a server with a name.
	void _PretendLogin()
	{
		Post(kHLServerInfo, "serverName", "Harbor");
		Post(kHLLoggedIn);
		_PostUser(kHLUserJoined, 1, "one");
		ExpectChatBegins("*** Server: Harbor (v0) ***\n", 0, 100, 0);
		ExpectChat("*** Logged in ***\n", 0, 128, 0);
	}
};


TEST_F(MainWindowTest, AtStart_IsNotConnected)
{
	EXPECT_EQ("Palimbra", Title());
	EXPECT_EQ("Not connected", Status());
	EXPECT_EQ("c----to", enabled_buttons(fMain));
	EXPECT_FALSE(MayChat());
	ExpectNoChat();
}


TEST_F(MainWindowTest, AtStart_WindowsHaveTheirPlaces)
{
	EXPECT_EQ(B_TITLED_WINDOW_LOOK, fMain.Window()->Look());
	EXPECT_EQ(static_cast<uint32>(B_NOT_ZOOMABLE | B_AUTO_UPDATE_SIZE_LIMITS),
		fMain.Window()->Flags());
	EXPECT_EQ(BPoint(100, 60), fMain.Window()->Frame().LeftTop());
	// At least: the buttons may need more.
	EXPECT_GE(fMain.Window()->Frame().Width(), 600);
	EXPECT_FALSE(fMain.Window()->IsMinimized());
	EXPECT_EQ(BRect(100, 180, 650, 550), fChat.Window()->Frame());
	EXPECT_EQ(BRect(660, 180, 880, 550), fUsers.Window()->Frame());
	for (const WindowProbe* window : {&fChat, &fUsers}) {
		EXPECT_FALSE(window->Window()->IsHidden());
		EXPECT_TRUE(window->Window()->IsMinimized());
	}
}


// Each with one of its fields, or without any; an empty line is none.
TEST_F(MainWindowTest, EveryReport_IsALineInItsColor)
{
	const std::string longText(65535, 'x');
	const struct {
		uint32 what;
		const char* field;
		std::string text;
		std::string line;
		uint8 red, green, blue;
	} rows[] = {
		{kHLConnected, "", "", "*** Connected — logging in ***\n", 0, 128, 0},
		{kHLConnectFailed, "error", "No way", "*** Connection failed: No way ***\n", 200, 0, 0},
		{kHLConnectFailed, "", "", "*** Connection failed: Unknown error ***\n", 200, 0, 0},
		{kHLLoggedIn, "", "", "*** Logged in ***\n", 0, 128, 0},
		{kHLDisconnected, "", "", "\n*** Connection lost ***\n", 200, 0, 0},
		{kHLServerInfo, "serverName", "Harbor", "*** Server: Harbor (v0) ***\n", 0, 100, 0},
		{kHLServerInfo, "serverName", "", "", 0, 0, 0},
		{kHLServerInfo, "", "", "", 0, 0, 0},
		{kHLChatReceived, "text", " adam:  hello", " adam:  hello\n", 0, 0, 0},
		{kHLChatReceived, "text", longText, longText + "\n", 0, 0, 0},
		{kHLBroadcast, "text", "at\rnoon", "\n*** Broadcast: at\rnoon ***\n", 200, 100, 0},
		{kHLTaskError, "error", "Not so", "*** Error: Not so ***\n", 200, 0, 0},
		{kHLTaskError, "error", "", "*** Error:  ***\n", 200, 0, 0},
		{kHLTaskError, "", "", "*** Error: Unknown error ***\n", 200, 0, 0},
		{kHLPoliteQuit, "", "", "\n*** Server requested disconnect ***\n", 200, 0, 0},
		{kHLMsgReceived, "text", "soon", "\n*** Server message ***\nsoon\n", 128, 0, 128},
		{kMsgToolDisconnect, "", "", "\n*** Disconnected ***\n", 180, 0, 0},
		{kMsgAcceptAgreement, "", "", "*** Agreement accepted ***\n", 0, 128, 0},
		{kMsgDeclineAgreement, "", "", "*** Agreement declined — disconnecting ***\n", 200, 0, 0},
		{kMsgDownloadDone, "filename", "file", "*** Download failed: file ***\n", 200, 0, 0},
		{kMsgUploadDone, "filename", "file", "*** Upload failed: file ***\n", 200, 0, 0},
		{kMsgSendChat, "text", "hello", "", 0, 0, 0},
		{kMsgDownloadFile, "name", "file", "", 0, 0, 0},
		{kHLServerBanner, "", "", "", 0, 0, 0},
		{kMsgTextFull, "", "", "", 0, 0, 0},
	};
	for (const auto& row : rows) {
		SCOPED_TRACE(row.line.substr(0, 80));
		Post(row.what, row.field, row.text);
		ExpectChat(row.line, row.red, row.green, row.blue);
	}
	EXPECT_EQ(0, count_windows<MessageWindow>());
}


TEST_F(MainWindowTest, EveryState_ShowsInAllWindows)
{
	const std::string harbor("Palimbra — Harbor");
	const struct {
		uint32 what;
		const char* buttons;
		const char* status;
		std::string title;
		bool mayChat;
		int32 users;
	} rows[] = {
		{kHLConnected, "-dcuf", "Connected — logging in…", harbor, true, 1},
		{kHLConnectFailed, "c-cuf", "Connection failed", harbor, false, 1},
		{kHLDisconnected, "c----", "Disconnected", harbor, false, 0},
		{kMsgToolDisconnect, "c----", "Not connected", "Palimbra", false, 0},
		{kHLPoliteQuit, "c----", "Not connected", "Palimbra", false, 0},
		{kMsgDeclineAgreement, "c----", "Not connected", "Palimbra", false, 0},
		{kHLServerBanner, "-dcuf", "Connected", harbor, true, 1},
	};
	for (const auto& row : rows) {
		SCOPED_TRACE(row.status);
		_PretendLogin();
		EXPECT_EQ("-dcuf", Buttons());
		EXPECT_EQ("Connected", Status());
		Post(row.what);
		EXPECT_EQ(row.buttons, Buttons());
		EXPECT_EQ(row.status, Status());
		EXPECT_EQ(row.title, Title());
		EXPECT_EQ(row.mayChat, MayChat());
		EXPECT_EQ(row.users, CountUsers());
		ForgetChat();
	}
}


TEST_F(MainWindowTest, WindowsThatOthersWouldOpenBeyondTheBounds_AreLines)
{
	for (uint16 socket = 1; socket <= 101; socket++) {
		BMessage message(kHLMsgReceived);
		message.AddUInt16("socket", socket);
		message.AddString("nick", "<b>%s");
		message.AddString("text", "[*]\nsoon");
		Post(&message);
	}
	EXPECT_EQ(100, count_windows<MessageWindow>());
	ExpectChat("\n*** Message from <b>%s ***\n[*]\nsoon\n", 128, 0, 128);
	for (int i = 0; i < 21; i++)
		Post(kHLAgreement, "text", "Be kind.");
	EXPECT_EQ(20, count_windows<AgreementWindow>());
	ExpectChat("\n*** Server agreement ***\nBe kind.\n", 0, 100, 0);
}


TEST_F(MainWindowTest, ServerInfo_NamesTheServerEverywhere)
{
	for (const std::string& name : hostile_texts()) {
		SCOPED_TRACE(name);
		BMessage info(kHLServerInfo);
		info.AddString("serverName", name.c_str());
		info.AddUInt16("version", 190);
		Post(&info);
		ExpectChat("*** Server: " + name + " (v190) ***\n", 0, 100, 0);
		EXPECT_EQ("Connected to " + name, Status());
		EXPECT_EQ("Palimbra — " + name, Title());
	}
}


TEST_F(MainWindowTest, UsersWhoJoinOrChange_GoToTheListUntilTheyLeave)
{
	_PostUser(kHLUserJoined, 7, "before");
	EXPECT_EQ("before", Nick(0));
	_PostUser(kHLUserChanged, 7, "after");
	_PostUser(kHLUserChanged, 8, "other");
	ASSERT_EQ(2, CountUsers());
	EXPECT_EQ("after", Nick(0));
	EXPECT_EQ("other", Nick(1));
	_PostUser(kHLUserLeft, 9, "");
	EXPECT_EQ(2, CountUsers());
	_PostUser(kHLUserLeft, 7, "");
	ASSERT_EQ(1, CountUsers());
	EXPECT_EQ("other", Nick(0));
	ExpectNoChat();
}


TEST_F(MainWindowTest, UserWithoutNick_HasThreeQuestionMarks)
{
	Post(kHLUserJoined);
	ASSERT_EQ(1, CountUsers());
	EXPECT_EQ("???", Nick(0));
	for (const std::string& nick : hostile_texts()) {
		Post(kHLUserJoined, "nick", nick);
		EXPECT_EQ(nick, Nick(0));
	}
	Post(kHLUserJoined, "nick", "");
	EXPECT_EQ("", Nick(0));
}


TEST_F(MainWindowTest, ChatAndUsersCommands_RevealTheirWindows)
{
	Post(kMsgToolChat);
	EXPECT_FALSE(fChat.Window()->IsMinimized());
	EXPECT_TRUE(fUsers.Window()->IsMinimized());
	Post(kMsgToolUsers);
	EXPECT_FALSE(fUsers.Window()->IsMinimized());
	fChat.Window()->Minimize(true);
	fUsers.Window()->Minimize(true);
	Post(kHLLoggedIn);
	EXPECT_FALSE(fChat.Window()->IsMinimized());
	EXPECT_FALSE(fUsers.Window()->IsMinimized());
}


// #pragma mark - Conversations and folders


TEST_F(MainWindowTest, Conversation_IsOpenedByWhoIsPickedOrSpeaks)
{
	_PostUser(kMsgOpenPM, 0, "nobody");
	EXPECT_EQ(0, count_windows<MessageWindow>());
	_PostUser(kMsgOpenPM, 5, "Ann");
	const MessageWindow* first = find_window<MessageWindow>();
	EXPECT_STREQ("Message — Ann", first->Title());
	BMessage withoutNick(kMsgOpenPM);
	withoutNick.AddUInt16("socket", 6);
	Post(&withoutNick);
	ASSERT_EQ(2, count_windows<MessageWindow>());
	EXPECT_STREQ("Message — ???", find_window<MessageWindow>()->Title());

	_PostUser(kHLMsgReceived, 5, "Bob");
	_PostUser(kHLMsgReceived, 7, "Cem");
	EXPECT_EQ(3, count_windows<MessageWindow>());
	EXPECT_STREQ("Message — Bob", first->Title());
	_PostUser(kMsgPMWinClosed, 7, "");
	close_silently(find_window<MessageWindow>());
	_PostUser(kHLMsgReceived, 7, "Cem");
	EXPECT_EQ(3, count_windows<MessageWindow>());
	ExpectNoChat();
}


TEST_F(MainWindowTest, Folder_GetsItsListingUntilItsWindowIsForgotten)
{
	const auto list = [this](const char* title) {
		Post(kHLFileListReceived, "path", "a");
		WindowProbe::Settle(open_windows<FileListWindow>()[1]);
		EXPECT_STREQ(title, open_windows<FileListWindow>()[1]->Title());
	};
	Post(kMsgOpenFolder);
	Post(kMsgOpenFolder, "path", "");
	EXPECT_EQ(0, count_windows<FileListWindow>());
	Post(kMsgToolFiles);
	EXPECT_STREQ("", find_window<FileListWindow>()->Path());
	Post(kMsgOpenFolder, "path", "a");
	ASSERT_EQ(2, count_windows<FileListWindow>());
	EXPECT_STREQ("Files — a", find_window<FileListWindow>()->Title());
	list("Files — a (0)");

	FileListWindow* window = find_window<FileListWindow>();
	BMessage notice(kMsgFileWinClosed);
	notice.AddPointer("window", window);
	Post(&notice);
	window->SetTitle("forgotten");
	list("forgotten");
	close_silently(window);
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


TEST_F(MainWindowTest, Quit_TakesAllItsWindowsAlong)
{
	_PostUser(kMsgOpenPM, 5, "Ann");
	Post(kMsgToolFiles);
	close_silently(fMain.Window());
	EXPECT_FALSE(fMain.IsAlive());
	EXPECT_EQ(0, be_app->CountWindows());
}
