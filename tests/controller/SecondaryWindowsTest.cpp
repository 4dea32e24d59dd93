/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <gtest/gtest.h>

#include <ListView.h>
#include <Message.h>

#include "AboutWindow.h"
#include "AgreementWindow.h"
#include "AppMessages.h"
#include "ConnectWindow.h"
#include "ControllerFixture.h"
#include "HotlineNotifications.h"
#include "InterposedCalls.h"
#include "OptionsWindow.h"
#include "RawServer.h"
#include "TrackerWindow.h"
#include "WaitFor.h"


/*!	The windows that are opened and left to close themselves. */
class SecondaryWindowsTest : public ControllerFixture {
protected:
	// Opens two windows, which have the same place as one that the test makes.
	template<class Class>
	void _ExpectOpens(uint32 what, BWindow* own)
	{
		const BRect frame = WindowProbe(own).Window()->Frame();
		Post(what);
		Post(what);
		const std::vector<Class*> windows = open_windows<Class>();
		EXPECT_EQ(2u, windows.size());
		for (Class* window : windows) {
			EXPECT_FALSE(window->IsHidden());
			EXPECT_EQ(frame, window->Frame());
			close_silently(window);
		}
		ExpectNoChat();
	}

	// Opens the tracker window for a tracker of the test's own, which says nothing.
	TrackerWindow* _OpenTracker()
	{
		const std::string address = "127.0.0.1:" + std::to_string(fTracker.Port());
		Post(kMsgOptionsSave, "tracker", address);
		Post(kMsgToolTracker);
		TrackerWindow* window = find_window<TrackerWindow>();
		EXPECT_EQ("Tracker — " + address, window->Title());
		EXPECT_TRUE(fTracker.Accept());
		fTracker.Hangup();
		return window;
	}

	const InterposedCalls fCalls;
	RawServer fTracker;
};


TEST_F(SecondaryWindowsTest, EveryCommand_OpensANewWindowInItsPlace)
{
	BLooper* main = fMain.Window();
	_ExpectOpens<ConnectWindow>(kMsgToolConnect,
		new ConnectWindow(BRect(200, 200, 550, 420), main));
	_ExpectOpens<TrackerWindow>(kMsgToolTracker,
		new TrackerWindow(BRect(150, 100, 650, 450), main, ""));
	_ExpectOpens<OptionsWindow>(kMsgToolOptions,
		new OptionsWindow(BRect(200, 150, 520, 550), main, "", 0, "", ""));
	_ExpectOpens<AboutWindow>(kMsgToolAbout, new AboutWindow(""));
	_ExpectOpens<AgreementWindow>(kHLAgreement,
		new AgreementWindow(BRect(150, 150, 600, 500), NULL, ""));
}


TEST_F(SecondaryWindowsTest, TwoOptionsWindows_TheLastOneSavedWins)
{
	Post(kMsgToolOptions);
	Post(kMsgToolOptions);
	const std::vector<OptionsWindow*> windows = open_windows<OptionsWindow>();
	ASSERT_EQ(2u, windows.size());
	for (OptionsWindow* open : {windows[1], windows[0]}) {
		WindowProbe window(open);
		EXPECT_EQ("HaikuUser", window.Text("nick"));
		EXPECT_EQ("hltracker.com", window.Text("tracker"));
		EXPECT_EQ("Current icon: 137", window.Label("iconlabel"));
		window.SetText("nick", open == windows[0] ? "first" : "second");
		window.Invoke("save");
		window.WaitForEnd();
	}
	BMessage icon(kMsgOptionsSave);
	icon.AddUInt16("icon", 65535);
	Post(&icon);
	Post(kMsgToolOptions);
	WindowProbe third(find_window<OptionsWindow>());
	EXPECT_EQ("first", third.Text("nick"));
	EXPECT_EQ("Current icon: 65535", third.Label("iconlabel"));
}


TEST_F(SecondaryWindowsTest, Tracker_IsAskedUnderTheSavedAddress)
{
	WindowProbe window(_OpenTracker());
	EXPECT_SOON(window.Label("status") == "Error: Failed to read tracker response");
}


TEST_F(SecondaryWindowsTest, ServerPickedInTheTracker_IsConnectedTo)
{
	WindowProbe window(_OpenTracker());
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
