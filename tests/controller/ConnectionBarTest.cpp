/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ConnectionBar.h"

#include <cctype>

#include <gtest/gtest.h>

#include <Button.h>
#include <Font.h>
#include <StringView.h>

#include "AppMessages.h"
#include "ControllerFixture.h"
#include "WindowMain.h"
#include "WindowProbe.h"


/*!	The bar alone in a window. */
class ConnectionBarTest : public testing::Test {
protected:
	ConnectionBarTest()
		: fBar(""),
		  fWindow(new BWindow(BRect(100, 100, 699, 199), "bar", B_TITLED_WINDOW, 0))
	{
		BLayoutBuilder::Group<> layout(fWindow.Window(), B_VERTICAL, 0);
		fBar.AddTo(&layout);
		fWindow.Window()->Show();
		HoldWindows();
	}

	// The buttons that are enabled, then the status line.
	std::string _Shown() const { return enabled_buttons(fWindow) + " " + fWindow.Label("status"); }

	ConnectionBar fBar;
	WindowProbe fWindow;
};


TEST_F(ConnectionBarTest, Buttons_HaveTheirLabelsAndMessages)
{
	const struct {
		const char* label;
		uint32 what;
	} buttons[] = {{"Connect", kMsgToolConnect}, {"Disconnect", kMsgToolDisconnect},
		{"Chat", kMsgToolChat}, {"Users", kMsgToolUsers}, {"Files", kMsgToolFiles},
		{"Tracker", kMsgToolTracker}, {"Options", kMsgToolOptions}};
	for (const auto& [label, what] : buttons) {
		std::string name(label);
		name[0] = static_cast<char>(tolower(name[0]));
		const BButton* button = fWindow.Find<BButton>(name.c_str());
		ASSERT_NE(nullptr, button) << name;
		EXPECT_STREQ(label, button->Label());
		EXPECT_EQ(what, button->Command());
	}
	BFont font;
	fWindow.Find<BStringView>("status")->GetFont(&font);
	EXPECT_EQ(*be_plain_font, font);
}


// A server's name is whatever the server has sent.
TEST_F(ConnectionBarTest, NameOfManyLines_IsShownInOne)
{
	const BSize size = fWindow.Find<BStringView>("status")->PreferredSize();
	for (const char* name : {"Harbor\nof\n\nships\r\n", "\n"}) {
		fBar.ShowServer(name);
		EXPECT_EQ(size.height, fWindow.Find<BStringView>("status")->PreferredSize().height);
	}
	fBar.ShowLoggedIn("Harbor\nof\n\nships");
	EXPECT_EQ("-dcufto Connected to Harbor of  ships", _Shown());
	EXPECT_EQ(size.height, fWindow.Find<BStringView>("status")->PreferredSize().height);
}


TEST_F(ConnectionBarTest, EveryState_HasItsButtonsAndItsText)
{
	EXPECT_EQ("c----to Not connected", _Shown());
	fBar.ShowConnecting("127.0.0.1", 65535);
	EXPECT_EQ("c----to Connecting to 127.0.0.1:65535…", _Shown());
	fBar.ShowLoggingIn();
	EXPECT_EQ("c----to Connected — logging in…", _Shown());
	fBar.ShowServer("Harbor");
	EXPECT_EQ("c----to Connected to Harbor", _Shown());
	fBar.ShowLoggedIn("");
	EXPECT_EQ("-dcufto Connected", _Shown());
	fBar.ShowFailed();
	EXPECT_EQ("c-cufto Connection failed", _Shown());
	fBar.ShowLoggedIn("Harbor");
	EXPECT_EQ("-dcufto Connected to Harbor", _Shown());
	fBar.ShowConnecting("", 0);
	EXPECT_EQ("-dcufto Connecting to :0…", _Shown());
	fBar.ShowLoggingIn();
	EXPECT_EQ("-dcufto Connected — logging in…", _Shown());
	fBar.ShowLost();
	EXPECT_EQ("c----to Disconnected", _Shown());
	fBar.ShowLoggedIn("Harbor");
	fBar.ShowNotConnected();
	EXPECT_EQ("c----to Not connected", _Shown());
}
