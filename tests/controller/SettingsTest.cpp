/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <gtest/gtest.h>

#include <ListView.h>
#include <Message.h>

#include "AboutWindow.h"
#include "AppMessages.h"
#include "ConnectedFixture.h"
#include "OptionsWindow.h"
#include "RawServer.h"
#include "TrackerWindow.h"
#include "WaitFor.h"
#include "WireBytes.h"


class SettingsTest : public ConnectedFixture {
protected:
	void _Save(const char* nick, const char* tracker, int icon = -1)
	{
		BMessage message(kMsgOptionsSave);
		message.AddString("nick", nick);
		message.AddString("tracker", tracker);
		if (icon >= 0)
			message.AddUInt16("icon", static_cast<uint16>(icon));
		Post(&message);
	}

	void _ExpectChange(const std::string& nick, uint16 icon)
	{
		const WireTransaction change = fServer.ReadRequest(304);
		EXPECT_EQ(nick, change.Field(102));
		EXPECT_EQ(wire16(icon), change.Field(104));
	}

	// What was sent before the line of the chat, if anything, is in front of it.
	void _ExpectNothingSent()
	{
		Post(kMsgSendChat, "text", "next");
		EXPECT_EQ("next", fServer.ReadRequest().Field(101));
	}
};


TEST_F(SettingsTest, Options_ShowTheDefaults)
{
	Post(kMsgToolOptions);
	WindowProbe window(find_window<OptionsWindow>());
	EXPECT_EQ(320, window.Window()->Frame().Width());
	EXPECT_EQ(400, window.Window()->Frame().Height());
	EXPECT_EQ("HaikuUser", window.Text("nick"));
	EXPECT_EQ("hltracker.com", window.Text("tracker"));
	EXPECT_EQ("Current icon: 137", window.Label("iconlabel"));
}


TEST_F(SettingsTest, SavedOptions_AreShownTheNextTime)
{
	_Save("Ann", "tracker.example", 65535);
	Post(kMsgToolOptions);
	WindowProbe window(find_window<OptionsWindow>());
	EXPECT_EQ("Ann", window.Text("nick"));
	EXPECT_EQ("tracker.example", window.Text("tracker"));
	EXPECT_EQ("Current icon: 65535", window.Label("iconlabel"));
}


TEST_F(SettingsTest, EmptyFields_KeepWhatWasSet)
{
	_Save("Ann", "tracker.example", 5);
	_Save("", "");
	Post(kMsgToolOptions);
	WindowProbe window(find_window<OptionsWindow>());
	EXPECT_EQ("Ann", window.Text("nick"));
	EXPECT_EQ("tracker.example", window.Text("tracker"));
	EXPECT_EQ("Current icon: 5", window.Label("iconlabel"));
}


TEST_F(SettingsTest, TwoOptionsWindows_TheLastOneSavedWins)
{
	Post(kMsgToolOptions);
	WindowProbe first(find_window<OptionsWindow>());
	Post(kMsgToolOptions);
	ASSERT_EQ(2, count_windows<OptionsWindow>());
	for (int32 i = 0; i < be_app->CountWindows(); i++) {
		BWindow* other = dynamic_cast<OptionsWindow*>(be_app->WindowAt(i));
		if (other == NULL || other == first.Window())
			continue;
		WindowProbe second(other);
		second.SetText("nick", "second");
		second.Invoke("save");
		second.WaitForEnd();
		break;
	}
	EXPECT_EQ("HaikuUser", first.Text("nick"));
	first.SetText("nick", "first");
	first.Invoke("save");
	first.WaitForEnd();
	Settle();

	Post(kMsgToolOptions);
	WindowProbe third(find_window<OptionsWindow>());
	EXPECT_EQ("first", third.Text("nick"));
}


TEST_F(SettingsTest, NewNick_IsSentWhileConnected)
{
	LogIn();
	_Save("Ann", "", 137);
	_ExpectChange("Ann", 137);
}


TEST_F(SettingsTest, NewIconAlone_IsSentWithTheOldNick)
{
	LogIn();
	_Save("", "", 5);
	_ExpectChange("HaikuUser", 5);
}


TEST_F(SettingsTest, NewTrackerAlone_IsNotSent)
{
	LogIn();
	_Save("HaikuUser", "tracker.example", 137);
	_ExpectNothingSent();
	_Save("", "other.example");
	_ExpectNothingSent();
}


TEST_F(SettingsTest, SavedBeforeConnecting_IsWhatLogsIn)
{
	_Save("Ann", "", 5);
	BMessage connect(kMsgConnectServer);
	connect.AddString("address", "127.0.0.1");
	connect.AddInt16("port", static_cast<int16>(fServer.Port()));
	Post(&connect);
	fServer.Accept();
	fServer.ShakeHands();
	const WireTransaction login = fServer.ReadRequest(107);
	EXPECT_EQ("Ann", login.Field(102));
	EXPECT_EQ(wire16(5), login.Field(104));
}


TEST_F(SettingsTest, SavedAfterTheLogin_IsWhatAgrees)
{
	LogIn();
	_Save("Ann", "", 5);
	_ExpectChange("Ann", 5);
	Post(kMsgAcceptAgreement);
	const WireTransaction agreed = fServer.ReadRequest(121);
	EXPECT_EQ("Ann", agreed.Field(102));
	EXPECT_EQ(wire16(5), agreed.Field(104));
}


TEST_F(SettingsTest, Tracker_IsAskedUnderTheSavedAddress)
{
	RawServer tracker;
	const std::string address = "127.0.0.1:" + std::to_string(tracker.Port());
	_Save("", address.c_str());
	Post(kMsgToolTracker);
	WindowProbe window(find_window<TrackerWindow>());
	EXPECT_EQ("Tracker — " + address, window.Window()->Title());
	EXPECT_EQ(BRect(150, 100, 650, 450), window.Window()->Frame());
	ASSERT_TRUE(tracker.Accept());
	tracker.Hangup();
	EXPECT_TRUE(WaitFor([&window] {
		return window.Label("status") == "Error: Failed to read tracker response";
	}));
}


TEST_F(SettingsTest, ServerPickedInTheTracker_IsConnectedTo)
{
	RawServer tracker;
	_Save("", ("127.0.0.1:" + std::to_string(tracker.Port())).c_str());
	Post(kMsgToolTracker);
	WindowProbe window(find_window<TrackerWindow>());
	ASSERT_TRUE(tracker.Accept());
	tracker.Hangup();

	BMessage server(kMsgTrackerServer);
	server.AddString("name", "Harbor");
	server.AddString("ip", "127.0.0.1");
	server.AddInt16("port", static_cast<int16>(fServer.Port()));
	window.Post(&server);
	window.Find<BListView>("serverlist")->Select(0);
	window.Post(kMsgTrackerInvoke);
	fServer.Accept();
	fServer.ShakeHands();
	EXPECT_EQ("HaikuUser", fServer.ReadRequest(107).Field(102));
}


TEST_F(SettingsTest, About_OpensANewWindowEachTime)
{
	Post(kMsgToolAbout);
	WindowProbe first(find_window<AboutWindow>());
	first.Invoke("ok");
	first.WaitForEnd();
	Post(kMsgToolAbout);
	EXPECT_EQ(1, count_windows<AboutWindow>());
	WindowProbe second(find_window<AboutWindow>());
}
