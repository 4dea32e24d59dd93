/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ConnectWindow.h"

#include <gtest/gtest.h>

#include <Button.h>
#include <TextControl.h>
#include <TextView.h>

#include "AppMessages.h"
#include "HostileTexts.h"
#include "MessageRecorder.h"
#include "WindowProbe.h"


class ConnectWindowTest : public testing::Test {
protected:
	ConnectWindowTest()
		: fTarget(new MessageRecorder()),
		  fWindow(new ConnectWindow(BRect(200, 200, 550, 420), fTarget.get()))
	{
		fWindow.Window()->Show();
	}

	// Types an address and a port, presses Connect, and gives back the request's port.
	int32 _PortFor(const char* port)
	{
		fWindow.SetText("address", "host");
		fWindow.SetText("port", port);
		fWindow.Invoke("connect");
		return static_cast<uint16>(fTarget->OnlyMessage().GetInt16("port", 0));
	}

	RecorderOwner fTarget;
	WindowProbe fWindow;
};


TEST_F(ConnectWindowTest, AtFirst_OnlyThePortIsFilledIn)
{
	EXPECT_STREQ("Connect to Server", fWindow.Window()->Title());
	EXPECT_EQ("", fWindow.Text("address"));
	EXPECT_EQ("5500", fWindow.Text("port"));
	EXPECT_EQ("", fWindow.Text("login"));
	EXPECT_EQ("", fWindow.Text("password"));
	EXPECT_STREQ("Address:", fWindow.Find<BTextControl>("address")->Label());
	EXPECT_STREQ("Port:", fWindow.Find<BTextControl>("port")->Label());
	EXPECT_STREQ("Login:", fWindow.Find<BTextControl>("login")->Label());
	EXPECT_STREQ("Password:", fWindow.Find<BTextControl>("password")->Label());
	EXPECT_STREQ("Connect", fWindow.Find<BButton>("connect")->Label());
	EXPECT_STREQ("Cancel", fWindow.Find<BButton>("cancel")->Label());
}


TEST_F(ConnectWindowTest, AtFirst_TheAddressHasTheFocusAndConnectIsTheDefault)
{
	EXPECT_TRUE(fWindow.Find<BTextControl>("address")->TextView()->IsFocus()
		|| fWindow.Find<BTextControl>("address")->IsFocus());
	EXPECT_TRUE(fWindow.Find<BButton>("connect")->IsDefault());
	EXPECT_FALSE(fWindow.Find<BButton>("cancel")->IsDefault());
}


TEST_F(ConnectWindowTest, AtFirst_IsADialogOfOneSizeInTheCenter)
{
	const BWindow* window = fWindow.Window();
	EXPECT_EQ(B_TITLED_WINDOW_LOOK, window->Look());
	EXPECT_EQ(B_MODAL_APP_WINDOW_FEEL, window->Feel());
	EXPECT_EQ(uint32(B_NOT_RESIZABLE | B_NOT_ZOOMABLE | B_ASYNCHRONOUS_CONTROLS
				  | B_AUTO_UPDATE_SIZE_LIMITS | B_CLOSE_ON_ESCAPE),
		window->Flags());
	// Wherever it was to be, it is in the same place.
	const WindowProbe other(new ConnectWindow(BRect(0, 0, 350, 220), fTarget.get()));
	EXPECT_EQ(window->Frame(), other.Window()->Frame());
}


TEST_F(ConnectWindowTest, OnlyThePassword_IsHidden)
{
	EXPECT_TRUE(fWindow.Find<BTextControl>("password")->TextView()->IsTypingHidden());
	EXPECT_FALSE(fWindow.Find<BTextControl>("login")->TextView()->IsTypingHidden());
}


TEST_F(ConnectWindowTest, TheFields_HaveOneDivider)
{
	const BTextControl* address = fWindow.Find<BTextControl>("address");
	const float divider = address->Divider();
	EXPECT_EQ(address->StringWidth("Password:") + 8.0f, divider);
	EXPECT_EQ(divider, fWindow.Find<BTextControl>("port")->Divider());
	EXPECT_EQ(divider, fWindow.Find<BTextControl>("login")->Divider());
	EXPECT_EQ(divider, fWindow.Find<BTextControl>("password")->Divider());
}


TEST_F(ConnectWindowTest, Connect_PostsTheRequestAndCloses)
{
	fWindow.SetText("address", "hotline.example.org");
	fWindow.SetText("port", "5600");
	fWindow.SetText("login", " guest ");
	fWindow.SetText("password", "se cret ");
	fWindow.Invoke("connect");
	fWindow.WaitForEnd();

	const BMessage request = fTarget->OnlyMessage();
	EXPECT_EQ(uint32(kMsgConnectServer), request.what);
	EXPECT_STREQ("hotline.example.org", request.GetString("address"));
	EXPECT_EQ(5600, request.GetInt16("port", 0));
	EXPECT_STREQ(" guest ", request.GetString("login"));
	EXPECT_STREQ("se cret ", request.GetString("password"));
}


TEST_F(ConnectWindowTest, AfterARequest_TheNextWindowStartsAnew)
{
	fWindow.SetText("address", "host");
	fWindow.SetText("port", "1");
	fWindow.SetText("login", "login");
	fWindow.SetText("password", "password");
	fWindow.Invoke("connect");
	fWindow.WaitForEnd();

	const WindowProbe next(new ConnectWindow(BRect(200, 200, 550, 420), fTarget.get()));
	EXPECT_EQ("", next.Text("address"));
	EXPECT_EQ("5500", next.Text("port"));
	EXPECT_EQ("", next.Text("login"));
	EXPECT_EQ("", next.Text("password"));
}


TEST_F(ConnectWindowTest, AddressOfBlanks_StaysAndPostsNothing)
{
	for (const char* address : {"", " ", " \t  "}) {
		SCOPED_TRACE(address);
		fWindow.SetText("address", address);
		fWindow.Invoke("connect");
		EXPECT_TRUE(fWindow.IsAlive());
		EXPECT_EQ(0, fTarget->CountMessages());
	}
}


TEST_F(ConnectWindowTest, BlanksAroundTheAddress_AreNotSent)
{
	fWindow.SetText("address", "  localhost \t");
	fWindow.Invoke("connect");
	EXPECT_STREQ("localhost", fTarget->OnlyMessage().GetString("address"));
}


TEST_F(ConnectWindowTest, PortOf1_IsKept)
{
	EXPECT_EQ(1, _PortFor("1"));
}


TEST_F(ConnectWindowTest, PortOf65535_IsKept)
{
	EXPECT_EQ(65535, _PortFor("65535"));
}


TEST_F(ConnectWindowTest, PortWithLettersBehind_IsReadUpToThem)
{
	EXPECT_EQ(123, _PortFor("123abc"));
}


class ConnectWindowBadPortTest : public ConnectWindowTest,
								 public testing::WithParamInterface<const char*> {};


TEST_P(ConnectWindowBadPortTest, GivesTheDefaultPort)
{
	EXPECT_EQ(5500, _PortFor(GetParam()));
}


INSTANTIATE_TEST_SUITE_P(Ports, ConnectWindowBadPortTest,
	testing::Values("0", "-1", "65536", "abc", "", " ", "4294967297", "99999999999999999999",
		"-99999999999999999999"));


TEST_F(ConnectWindowTest, Cancel_ClosesAndPostsNothing)
{
	fWindow.SetText("address", "host");
	fWindow.Invoke("cancel");
	fWindow.WaitForEnd();
	EXPECT_EQ(0, fTarget->CountMessages());
}


TEST_F(ConnectWindowTest, Layout_IsTidyAtTwoSizes)
{
	fWindow.ExpectTidyAtTwoSizes();
}


TEST_F(ConnectWindowTest, TheTarget_MayBeGone)
{
	fTarget.reset();
	fWindow.SetText("address", "host");
	fWindow.Invoke("connect");
	fWindow.WaitForEnd();
}


TEST_F(ConnectWindowTest, HostileLogin_IsSentAsTyped)
{
	const std::string login = "<b>&amp;%s[*]&File";
	fWindow.SetText("address", login.c_str());
	fWindow.SetText("login", login.c_str());
	fWindow.SetText("password", login.c_str());
	fWindow.Invoke("connect");

	const BMessage request = fTarget->OnlyMessage();
	EXPECT_EQ(login, request.GetString("address"));
	EXPECT_EQ(login, request.GetString("login"));
	EXPECT_EQ(login, request.GetString("password"));
}
