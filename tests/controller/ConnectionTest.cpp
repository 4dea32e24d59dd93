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
#include "HostileTexts.h"
#include "HotlineNotifications.h"
#include "RawServer.h"
#include "WaitFor.h"
#include "WireBytes.h"
#include "WireRecords.h"


static const char* const kLineWhileConnecting = "*** Connected — logging in ***\n";


class ConnectionTest : public ControllerFixture {
protected:
	void _Connect(uint16 port, const char* login = "", const char* password = "")
	{
		BMessage message(kMsgConnectServer);
		message.AddString("address", "127.0.0.1");
		message.AddInt16("port", static_cast<int16>(port));
		message.AddString("login", login);
		message.AddString("password", password);
		Post(&message);
	}

	static std::string _ConnectingTo(uint16 port)
	{
		return "*** Connecting to 127.0.0.1:" + std::to_string(port) + " ***\n";
	}

	// Connects to the server and logs in, up to the last line of it.
	void _LogIn(RawServer& server, const std::string& name = "Harbor")
	{
		_Connect(server.Port());
		AwaitChat(_ConnectingTo(server.Port()), 100, 100, 100);
		server.AcceptAndLogIn(name);
		AwaitChat(kLineWhileConnecting, 0, 128, 0);
		AwaitChat("*** Server: " + name + " (v190) ***\n", 0, 100, 0);
		AwaitChat("*** Logged in ***\n", 0, 128, 0);
		server.ReadRequest(300);
		server.ReadRequest(300);
	}

	void _AwaitStatus(const std::string& status)
	{
		EXPECT_TRUE(WaitFor([&] {
			return Status() == status;
		})) << Status();
	}
};


TEST_F(ConnectionTest, Connecting_IsAnnounced)
{
	RawServer server;
	_Connect(server.Port());
	EXPECT_EQ("Connecting to 127.0.0.1:" + std::to_string(server.Port()) + "…", Status());
	AwaitChat(_ConnectingTo(server.Port()), 100, 100, 100);
	EXPECT_FALSE(fChat.Window()->IsMinimized());
	EXPECT_EQ("c----", Buttons());
}


TEST_F(ConnectionTest, ConnectWindow_LeadsToALogin)
{
	RawServer server;
	fMain.Invoke("connect");
	WindowProbe window(find_window<ConnectWindow>());
	window.SetText("address", "127.0.0.1");
	window.SetText("port", std::to_string(server.Port()).c_str());
	window.SetText("login", "guest");
	window.SetText("password", "secret");
	window.Invoke("connect");
	window.WaitForEnd();

	server.Accept();
	server.ShakeHands();
	const WireTransaction login = server.ReadRequest(107);
	EXPECT_EQ("HaikuUser", login.Field(102));
	EXPECT_EQ(wire16(137), login.Field(104));
	EXPECT_TRUE(login.HasField(105));
	EXPECT_TRUE(login.HasField(106));
	_AwaitStatus("Connected — logging in…");
}


TEST_F(ConnectionTest, LogIn_GoesThroughEveryState)
{
	RawServer server;
	_LogIn(server);
	Settle();
	EXPECT_EQ("Connected to Harbor", Status());
	EXPECT_EQ("Palimbra — Harbor", Title());
	EXPECT_EQ("-dcuf", Buttons());
	EXPECT_TRUE(MayChat());
	EXPECT_FALSE(fUsers.Window()->IsMinimized());
}


TEST_F(ConnectionTest, ServerWithoutAName_IsOnlyConnected)
{
	RawServer server;
	_Connect(server.Port());
	AwaitChat(_ConnectingTo(server.Port()), 100, 100, 100);
	server.AcceptAndLogIn("");
	AwaitChat(kLineWhileConnecting, 0, 128, 0);
	AwaitChat("*** Logged in ***\n", 0, 128, 0);
	_AwaitStatus("Connected");
	EXPECT_EQ("Palimbra", Title());
}


// The client itself asks once, the controller once more.
TEST_F(ConnectionTest, LogIn_AsksForTheUsersTwiceAndListsThemOnce)
{
	RawServer server;
	_Connect(server.Port());
	server.AcceptAndLogIn("Harbor");
	for (int round = 0; round < 2; round++) {
		const WireTransaction request = server.ReadRequest(300);
		server.Reply(request.id,
			{{300, wire_user(1, 128, 0, "first")}, {300, wire_user(2, 129, 2, "second")}});
	}
	server.Send(106, {{101, "after the lists"}});
	AwaitChat(_ConnectingTo(server.Port()), 100, 100, 100);
	AwaitChat(kLineWhileConnecting, 0, 128, 0);
	AwaitChat("*** Server: Harbor (v190) ***\n", 0, 100, 0);
	AwaitChat("*** Logged in ***\n", 0, 128, 0);
	AwaitChat("after the lists\n", 0, 0, 0);
	Settle();
	ASSERT_EQ(2, CountUsers());
	EXPECT_EQ("first", Nick(0));
	EXPECT_EQ("second", Nick(1));
}


TEST_F(ConnectionTest, ConnectServerWithoutPort_TakesTheDefault)
{
	BMessage message(kMsgConnectServer);
	message.AddString("address", "256.256.256.256");
	Post(&message);
	AwaitChat("*** Connecting to 256.256.256.256:5500 ***\n", 100, 100, 100);
	AwaitChat("*** Connection failed: Could not resolve address ***\n", 200, 0, 0);
	EXPECT_EQ("Connection failed", Status());
}


TEST_F(ConnectionTest, PortAbove32767_IsReadUnsigned)
{
	BMessage message(kMsgConnectServer);
	message.AddString("address", "256.256.256.256");
	message.AddInt16("port", static_cast<int16>(65535));
	Post(&message);
	AwaitChat("*** Connecting to 256.256.256.256:65535 ***\n", 100, 100, 100);
	AwaitChat("*** Connection failed: Could not resolve address ***\n", 200, 0, 0);
}


TEST_F(ConnectionTest, RefusedLogin_IsAnErrorAndNoLogin)
{
	RawServer server;
	_Connect(server.Port());
	AwaitChat(_ConnectingTo(server.Port()), 100, 100, 100);
	server.Accept();
	server.ShakeHands();
	const WireTransaction login = server.ReadRequest(107);
	server.Reply(login.id, {{100, "Login incorrect"}}, 1);
	AwaitChat(kLineWhileConnecting, 0, 128, 0);
	AwaitChat("*** Error: Login incorrect ***\n", 200, 0, 0);
	EXPECT_EQ("c----", Buttons());

	server.Hangup();
	AwaitChat("\n*** Connection lost ***\n", 200, 0, 0);
	EXPECT_EQ("Disconnected", Status());
}


TEST_F(ConnectionTest, TypedChat_ReachesTheServer)
{
	RawServer server;
	_LogIn(server);
	fChat.SetText("chatinput", " hello there ");
	fChat.Invoke("chatinput");
	EXPECT_EQ(" hello there ", server.ReadRequest(105).Field(101));

	for (const std::string& text : hostile_texts()) {
		SCOPED_TRACE(text);
		fChat.SetText("chatinput", text.c_str());
		fChat.Invoke("chatinput");
		EXPECT_EQ(text, server.ReadRequest(105).Field(101));
	}
	ExpectNoChat();
}


TEST_F(ConnectionTest, EventsOfTheServer_AreShown)
{
	RawServer server;
	_LogIn(server);
	server.Send(106, {{101, "\r one:  hi\rthere"}});
	AwaitChat("\n one:  hi\nthere\n", 0, 0, 0);
	server.Send(355, {{101, "noon\rbreak"}});
	AwaitChat("\n*** Broadcast: noon\rbreak ***\n", 200, 100, 0);
	server.Send(301, {{103, wire16(5)}, {104, wire16(1)}, {102, "five"}});
	EXPECT_TRUE(WaitFor([this] {
		return CountUsers() == 1;
	}));
	EXPECT_EQ("five", Nick(0));
	server.Send(302, {{103, wire16(5)}});
	EXPECT_TRUE(WaitFor([this] {
		return CountUsers() == 0;
	}));
}


TEST_F(ConnectionTest, Agreement_IsAcceptedWithNickAndIcon)
{
	RawServer server;
	_LogIn(server);
	server.Send(109, {{101, "Be kind.\rStay long."}});
	EXPECT_TRUE(WaitFor([] {
		return count_windows<AgreementWindow>() == 1;
	}));
	WindowProbe window(find_window<AgreementWindow>());
	EXPECT_EQ("Be kind.\nStay long.", window.Transcript("agreementtext"));
	window.Invoke("accept");
	window.WaitForEnd();

	AwaitChat("*** Agreement accepted ***\n", 0, 128, 0);
	const WireTransaction agreed = server.ReadRequest(121);
	EXPECT_EQ("HaikuUser", agreed.Field(102));
	EXPECT_EQ(wire16(137), agreed.Field(104));
}


TEST_F(ConnectionTest, AgreementDeclined_HangsUp)
{
	RawServer server;
	_LogIn(server);
	server.Send(109, {{101, "Be kind."}});
	EXPECT_TRUE(WaitFor([] {
		return count_windows<AgreementWindow>() == 1;
	}));
	WindowProbe window(find_window<AgreementWindow>());
	window.Invoke("decline");
	window.WaitForEnd();

	AwaitChat("*** Agreement declined — disconnecting ***\n", 200, 0, 0);
	EXPECT_TRUE(server.WaitForEnd());
	_AwaitStatus("Not connected");
	EXPECT_EQ("Palimbra", Title());
}


TEST_F(ConnectionTest, PoliteQuit_HangsUp)
{
	RawServer server;
	_LogIn(server);
	server.Send(111, {{101, "Good night"}});
	AwaitChat("\n*** Server requested disconnect ***\n", 200, 0, 0);
	EXPECT_TRUE(server.WaitForEnd());
	_AwaitStatus("Not connected");
}


TEST_F(ConnectionTest, Disconnect_HangsUpAndReportsNoLoss)
{
	RawServer server;
	_LogIn(server);
	fMain.Invoke("disconnect");
	AwaitChat("\n*** Disconnected ***\n", 180, 0, 0);
	EXPECT_TRUE(server.WaitForEnd());
	Settle();
	ExpectNoChat();
	EXPECT_EQ("Not connected", Status());
}


TEST_F(ConnectionTest, LostLine_CanBeConnectedAgain)
{
	RawServer server;
	_LogIn(server);
	server.Hangup();
	AwaitChat("\n*** Connection lost ***\n", 200, 0, 0);
	_AwaitStatus("Disconnected");
	EXPECT_EQ("Palimbra — Harbor", Title());
	EXPECT_EQ("c----", Buttons());

	_LogIn(server, "Island");
	_AwaitStatus("Connected to Island");
	EXPECT_EQ("Palimbra — Island", Title());
	EXPECT_EQ("-dcuf", Buttons());
}


TEST_F(ConnectionTest, ConnectingWhileConnected_EndsTheFirstConnection)
{
	RawServer first;
	RawServer second;
	_LogIn(first);
	BMessage user(kHLUserJoined);
	Post(&user);
	EXPECT_EQ(1, CountUsers());

	_Connect(second.Port());
	AwaitChat(_ConnectingTo(second.Port()), 100, 100, 100);
	EXPECT_EQ("Connecting to 127.0.0.1:" + std::to_string(second.Port()) + "…", Status());
	EXPECT_EQ("Palimbra", Title());
	EXPECT_EQ(0, CountUsers());
	EXPECT_TRUE(first.WaitForEnd());

	second.AcceptAndLogIn("Island");
	AwaitChat(kLineWhileConnecting, 0, 128, 0);
	AwaitChat("*** Server: Island (v190) ***\n", 0, 100, 0);
	AwaitChat("*** Logged in ***\n", 0, 128, 0);
}


TEST_F(ConnectionTest, UsersCommand_AsksAgainOnlyWhileConnected)
{
	RawServer server;
	_LogIn(server);
	Post(kMsgToolUsers);
	server.ReadRequest(300);

	Post(kMsgToolDisconnect);
	Post(kMsgToolUsers);
	EXPECT_TRUE(server.WaitForEnd());
}


TEST_F(ConnectionTest, EmptyChat_IsNotSent)
{
	RawServer server;
	_LogIn(server);
	Post(kMsgSendChat, "text", "");
	Post(kMsgSendChat);
	Post(kMsgSendChat, "text", "next");
	EXPECT_EQ("next", server.ReadRequest(105).Field(101));
}


TEST_F(ConnectionTest, FailedAttempt_CanBeRepeated)
{
	RawServer server;
	_Connect(server.Port());
	AwaitChat(_ConnectingTo(server.Port()), 100, 100, 100);
	server.Accept();
	server.Send("HTTP/1.0");
	AwaitChat("*** Connection failed: Invalid server response ***\n", 200, 0, 0);
	EXPECT_EQ("Connection failed", Status());
	_LogIn(server);
}


TEST_F(ConnectionTest, WindowClosedWhileConnected_HangsUp)
{
	RawServer server;
	_LogIn(server);
	ASSERT_TRUE(fMain.Window()->Lock());
	fMain.Window()->Quit();
	EXPECT_TRUE(server.WaitForEnd());
}


// The attempt waits for an answer that never comes.
TEST_F(ConnectionTest, WindowClosedWhileConnecting_HangsUp)
{
	RawServer server;
	_Connect(server.Port());
	server.Accept();
	ASSERT_TRUE(fMain.Window()->Lock());
	fMain.Window()->Quit();
	EXPECT_TRUE(server.WaitForEnd());
}
