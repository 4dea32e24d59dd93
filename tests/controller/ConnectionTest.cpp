/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <gtest/gtest.h>

#include <Message.h>

#include "AgreementWindow.h"
#include "AppMessages.h"
#include "ConnectWindow.h"
#include "ControllerFixture.h"
#include "FileListWindow.h"
#include "HotlineNotifications.h"
#include "MessageWindow.h"
#include "WaitFor.h"
#include "WireBytes.h"
#include "WireRecords.h"


/*!	The main window against a server: what it goes through with it. */
class ConnectionTest : public ControllerFixture {
protected:
	// A conversation and two windows of folders.
	void _OpenWindows()
	{
		BMessage pick(kMsgOpenPM);
		pick.AddUInt16("socket", 5);
		Post(&pick);
		Post(kMsgToolFiles);
		Post(kMsgOpenFolder, "path", "a");
		EXPECT_EQ(3, _CountOpen());
	}

	static int32 _CountOpen()
	{
		return count_windows<MessageWindow>() + count_windows<FileListWindow>();
	}

	static void _AwaitClosed() { EXPECT_SOON(_CountOpen() == 0); }

	// Has the server show its agreement, which is answered by this button.
	void _Agree(const char* button)
	{
		fServer.Send(109, {{101, "Be kind.\rStay long."}});
		EXPECT_SOON(count_windows<AgreementWindow>() == 1);
		WindowProbe window(find_window<AgreementWindow>());
		EXPECT_EQ("Be kind.\nStay long.", window.Transcript("agreementtext"));
		window.Invoke(button);
		window.WaitForEnd();
	}
};


TEST_F(ConnectionTest, ConnectWindow_LeadsToALogin)
{
	fMain.Invoke("connect");
	WindowProbe window(find_window<ConnectWindow>());
	window.SetText("address", "127.0.0.1");
	window.SetText("port", std::to_string(fServer.Port()).c_str());
	window.SetText("login", "guest");
	window.SetText("password", "secret");
	window.Invoke("connect");
	window.WaitForEnd();

	fServer.Accept();
	fServer.ShakeHands();
	const WireTransaction login = fServer.ReadRequest(107);
	EXPECT_EQ("HaikuUser", login.Field(102));
	EXPECT_EQ(wire16(137), login.Field(104));
	EXPECT_TRUE(login.HasField(105));
	EXPECT_TRUE(login.HasField(106));
	EXPECT_SOON(Status() == "Connected — logging in…");
}


TEST_F(ConnectionTest, LogIn_EndsInEveryWindow)
{
	for (const std::string name : {"Harbor", ""}) {
		LogIn(name);
		Settle();
		EXPECT_EQ(name.empty() ? "Connected" : "Connected to Harbor", Status());
		EXPECT_EQ(name.empty() ? "Palimbra" : "Palimbra — Harbor", Title());
		EXPECT_EQ("-dcuf", Buttons());
		EXPECT_TRUE(MayChat());
		EXPECT_FALSE(fChat.Window()->IsMinimized());
		EXPECT_FALSE(fUsers.Window()->IsMinimized());
	}
}


// The client itself asks once, the controller once more.
TEST_F(ConnectionTest, LogIn_AsksForTheUsersTwiceAndListsThemOnce)
{
	Dial(fServer.Port());
	fServer.AcceptAndLogIn("Harbor");
	for (int round = 0; round < 2; round++) {
		const WireTransaction request = fServer.ReadRequest(300);
		fServer.Reply(request.id,
			{{300, wire_user(1, 128, 0, "first")}, {300, wire_user(2, 129, 2, "second")}});
	}
	fServer.Send(106, {{101, "after the lists"}});
	AwaitLogIn("Harbor");
	AwaitChat("after the lists\n", 0, 0, 0);
	Settle();
	ASSERT_EQ(2, CountUsers());
	EXPECT_EQ("first", Nick(0));
	EXPECT_EQ("second", Nick(1));
}


TEST_F(ConnectionTest, Port_IsReadUnsignedAndHasADefault)
{
	Post(kMsgConnectServer, "address", "256.256.256.256");
	AwaitDialing(5500, "256.256.256.256");
	AwaitChat("*** Connection failed: Could not resolve address ***\n", 200, 0, 0);
	EXPECT_EQ("Connection failed", Status());
	Dial(65535, "256.256.256.256");
	AwaitChat("*** Connection failed: Could not resolve address ***\n", 200, 0, 0);
}


TEST_F(ConnectionTest, RefusedLogin_IsAnErrorAndNoLogin)
{
	Dial(fServer.Port());
	fServer.Accept();
	fServer.ShakeHands();
	const WireTransaction login = fServer.ReadRequest(107);
	fServer.Reply(login.id, {{100, "Login incorrect"}}, 1);
	AwaitChat("*** Connected — logging in ***\n", 0, 128, 0);
	AwaitChat("*** Error: Login incorrect ***\n", 200, 0, 0);
	EXPECT_EQ("c----", Buttons());

	fServer.Hangup();
	AwaitChat("\n*** Connection lost ***\n", 200, 0, 0);
	EXPECT_EQ("Disconnected", Status());
}


TEST_F(ConnectionTest, FailedAttempt_IsAnnouncedAndCanBeRepeated)
{
	Dial(fServer.Port());
	EXPECT_EQ("Connecting to 127.0.0.1:" + std::to_string(fServer.Port()) + "…", Status());
	EXPECT_FALSE(fChat.Window()->IsMinimized());
	EXPECT_EQ("c----", Buttons());
	fServer.Accept();
	fServer.Send("HTTP/1.0");
	AwaitChat("*** Connection failed: Invalid server response ***\n", 200, 0, 0);
	EXPECT_EQ("Connection failed", Status());
	LogIn();
}


// What the windows post, row by row.
TEST_F(ConnectionTest, EveryRequest_ReachesTheServer)
{
	const struct {
		uint32 what;
		const char* field;
		uint32_t transaction;
	} rows[] = {
		{kMsgSendChat, "text", 105},
		{kMsgPMSend, "text", 108},
		{kMsgToolUsers, "unused", 300},
		{kMsgToolFiles, "unused", 200},
		{kMsgOpenFolder, "path", 200},
		{kMsgDownloadFile, "name", 202},
		{kMsgUploadFile, "name", 203},
		{kMsgOptionsSave, "nick", 304},
		{kMsgAcceptAgreement, "unused", 121},
	};
	LogIn();
	for (const auto& row : rows) {
		SCOPED_TRACE(row.transaction);
		BMessage message(row.what);
		message.AddString(row.field, "text");
		message.AddUInt16("socket", 5);
		message.AddString("localpath", "/nowhere/at/all");
		Post(&message);
		fServer.ReadRequest(row.transaction);
	}
	AwaitChat("*** Requesting download: text ***\n*** Requesting upload: text ***\n", 100, 100,
		100);
	AwaitChat("*** Agreement accepted ***\n", 0, 128, 0);
	ExpectNoChat();
}


TEST_F(ConnectionTest, WhatIsTyped_ReachesTheServer)
{
	LogIn();
	fChat.SetText("chatinput", " hello there ");
	fChat.Invoke("chatinput");
	EXPECT_EQ(" hello there ", fServer.ReadRequest(105).Field(101));

	fServer.Send(104, {{103, wire16(5)}, {102, "Ann"}, {101, "one\rtwo"}});
	EXPECT_SOON(count_windows<MessageWindow>() == 1);
	WindowProbe window(find_window<MessageWindow>());
	EXPECT_SOON(window.Transcript("pmchat") == "Ann: one\ntwo\n");
	window.SetText("pminput", "hi");
	window.Invoke("pminput");
	const WireTransaction sent = fServer.ReadRequest(108);
	EXPECT_EQ(wire16(5), sent.Field(103));
	EXPECT_EQ("hi", sent.Field(101));
	ExpectNoChat();
}


TEST_F(ConnectionTest, EventsOfTheServer_AreShown)
{
	LogIn();
	fServer.Send(106, {{101, "\r one:  hi\rthere"}});
	AwaitChat("\n one:  hi\nthere\n", 0, 0, 0);
	fServer.Send(355, {{101, "noon\rbreak"}});
	AwaitChat("\n*** Broadcast: noon\rbreak ***\n", 200, 100, 0);
	fServer.Send(301, {{103, wire16(5)}, {104, wire16(1)}, {102, "five"}});
	EXPECT_SOON(CountUsers() == 1);
	EXPECT_EQ("five", Nick(0));
	fServer.Send(302, {{103, wire16(5)}});
	EXPECT_SOON(CountUsers() == 0);
}


// Whatever was saved, before the login and after it.
TEST_F(ConnectionTest, SavedNickAndIcon_AreWhatLogsInAndAgrees)
{
	BMessage save(kMsgOptionsSave);
	save.AddString("nick", "Ann");
	save.AddUInt16("icon", 5);
	Post(&save);
	Dial(fServer.Port());
	fServer.Accept();
	fServer.ShakeHands();
	const WireTransaction login = fServer.ReadRequest(107);
	EXPECT_EQ("Ann", login.Field(102));
	EXPECT_EQ(wire16(5), login.Field(104));
	fServer.Reply(login.id, {{160, wire16(190)}, {162, "Harbor"}});
	AwaitLogIn("Harbor");
	fServer.ReadRequest(300);
	fServer.ReadRequest(300);
	Post(kMsgOptionsSave, "nick", "Bob");
	EXPECT_EQ("Bob", fServer.ReadRequest(304).Field(102));
	_Agree("accept");
	AwaitChat("*** Agreement accepted ***\n", 0, 128, 0);
	const WireTransaction agreed = fServer.ReadRequest(121);
	EXPECT_EQ("Bob", agreed.Field(102));
	EXPECT_EQ(wire16(5), agreed.Field(104));
}


TEST_F(ConnectionTest, EveryEnd_HangsUpReportsNoLossAndClosesTheWindows)
{
	for (const std::string end : {"declined", "by the user", "by the server"}) {
		SCOPED_TRACE(end);
		LogIn();
		_OpenWindows();
		if (end == "by the user") {
			fMain.Invoke("disconnect");
			AwaitChat("\n*** Disconnected ***\n", 180, 0, 0);
		} else if (end == "by the server") {
			fServer.Send(111, {{101, "Good night"}});
			AwaitChat("\n*** Server requested disconnect ***\n", 200, 0, 0);
		} else {
			_Agree("decline");
			AwaitChat("*** Agreement declined — disconnecting ***\n", 200, 0, 0);
		}
		EXPECT_TRUE(fServer.WaitForEnd());
		_AwaitClosed();
		Settle();
		ExpectNoChat();
		EXPECT_EQ("Not connected", Status());
		EXPECT_EQ("Palimbra", Title());
	}
}


TEST_F(ConnectionTest, LostLine_LeavesTheWindowsAndCanBeConnectedAgain)
{
	LogIn();
	_OpenWindows();
	fServer.Hangup();
	AwaitChat("\n*** Connection lost ***\n", 200, 0, 0);
	Settle();
	EXPECT_EQ("Disconnected", Status());
	EXPECT_EQ("Palimbra — Harbor", Title());
	EXPECT_EQ("c----", Buttons());
	WindowProbe::Settle(be_app);
	EXPECT_EQ(3, _CountOpen());

	LogIn("Island");
	EXPECT_EQ("Palimbra — Island", Title());
	_AwaitClosed();
}


TEST_F(ConnectionTest, ConnectingWhileConnected_EndsTheFirstConnection)
{
	RawServer second;
	LogIn();
	Post(kHLUserJoined);
	EXPECT_EQ(1, CountUsers());
	_OpenWindows();

	Dial(second.Port());
	EXPECT_EQ("Connecting to 127.0.0.1:" + std::to_string(second.Port()) + "…", Status());
	EXPECT_EQ("Palimbra", Title());
	EXPECT_EQ(0, CountUsers());
	_AwaitClosed();
	EXPECT_TRUE(fServer.WaitForEnd());
	second.AcceptAndLogIn("Island");
	AwaitLogIn("Island");
}


// An attempt may wait for an answer that never comes.
TEST_F(ConnectionTest, WindowClosed_HangsUp)
{
	Dial(fServer.Port());
	fServer.Accept();
	close_silently(fMain.Window());
	EXPECT_TRUE(fServer.WaitForEnd());
}


TEST_F(ConnectionTest, WindowClosedWhileConnected_HangsUp)
{
	LogIn();
	close_silently(fMain.Window());
	EXPECT_TRUE(fServer.WaitForEnd());
}


TEST_F(ConnectionTest, TextWithoutRoom_EndsTheConnectionAndSaysSo)
{
	LogIn();
	Post(kMsgTextFull);
	EXPECT_EQ("Disconnected: out of memory", Status());
	EXPECT_EQ("c----", Buttons());
	EXPECT_FALSE(MayChat());
	ExpectChat("\n*** Disconnected: out of memory ***\n", 200, 0, 0);
	EXPECT_TRUE(fServer.WaitForEnd());
}
