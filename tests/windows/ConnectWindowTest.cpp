/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ConnectWindow.h"

#include <map>

#include <Button.h>
#include <TextControl.h>
#include <TextView.h>

#include "AppMessages.h"
#include "HostileTexts.h"
#include "WindowTest.h"


class ConnectWindowTest : public WindowTest {
protected:
	ConnectWindowTest() { Open(new ConnectWindow(BRect(200, 200, 550, 420), fTarget.get())); }

	void _Fill(const char* address, const char* port, const char* login, const char* password)
	{
		fWindow->SetText("address", address);
		fWindow->SetText("port", port);
		fWindow->SetText("login", login);
		fWindow->SetText("password", password);
	}

	void _ExpectOnlyThePort()
	{
		EXPECT_EQ("", fWindow->Text("address"));
		EXPECT_EQ("5500", fWindow->Text("port"));
		EXPECT_EQ("", fWindow->Text("login"));
		EXPECT_EQ("", fWindow->Text("password"));
	}
};


TEST_F(ConnectWindowTest, AtFirst_OnlyThePortIsFilledIn)
{
	EXPECT_STREQ("Connect to Server", fWindow->Window()->Title());
	_ExpectOnlyThePort();
	for (const auto& [name, label] :
		{std::pair("address", "Address:"), {"port", "Port:"}, {"login", "Login:"},
			{"password", "Password:"}, {"connect", "Connect"}, {"cancel", "Cancel"}})
		EXPECT_STREQ(label, fWindow->Find<BControl>(name)->Label());
}


TEST_F(ConnectWindowTest, AtFirst_TheAddressHasTheFocusAndConnectIsTheDefault)
{
	EXPECT_TRUE(fWindow->Find<BTextControl>("address")->TextView()->IsFocus()
		|| fWindow->Find<BTextControl>("address")->IsFocus());
	EXPECT_TRUE(fWindow->Find<BButton>("connect")->IsDefault());
	EXPECT_FALSE(fWindow->Find<BButton>("cancel")->IsDefault());
}


TEST_F(ConnectWindowTest, AtFirst_IsADialogOfOneSizeInTheCenter)
{
	const BWindow* window = fWindow->Window();
	EXPECT_EQ(B_TITLED_WINDOW_LOOK, window->Look());
	EXPECT_EQ(B_MODAL_APP_WINDOW_FEEL, window->Feel());
	EXPECT_EQ(static_cast<uint32>(B_NOT_RESIZABLE | B_NOT_ZOOMABLE | B_ASYNCHRONOUS_CONTROLS
				  | B_AUTO_UPDATE_SIZE_LIMITS | B_CLOSE_ON_ESCAPE),
		window->Flags());
	ExpectCenteredLike(new ConnectWindow(BRect(0, 0, 350, 220), fTarget.get()));
}


TEST_F(ConnectWindowTest, TheFields_HaveOneDividerAndOnlyThePasswordIsHidden)
{
	for (const std::string name : {"address", "port", "login", "password"}) {
		SCOPED_TRACE(name);
		const BTextControl* field = fWindow->Find<BTextControl>(name.c_str());
		EXPECT_EQ(field->StringWidth("Password:") + 8.0f, field->Divider());
		EXPECT_EQ(name == "password", field->TextView()->IsTypingHidden());
	}
}


TEST_F(ConnectWindowTest, Connect_PostsTheRequestAndCloses)
{
	_Fill("hotline.example.org", "5600", " guest ", "se cret ");
	fWindow->Invoke("connect");
	fWindow->WaitForEnd();
	fTarget->ExpectOnly(built_message(kMsgConnectServer, "address", "hotline.example.org", "port",
		static_cast<int16>(5600), "login", " guest ", "password", "se cret "));
}


TEST_F(ConnectWindowTest, AfterARequest_TheNextWindowStartsAnew)
{
	_Fill("host", "1", "login", "password");
	fWindow->Invoke("connect");
	fWindow->WaitForEnd();
	Open(new ConnectWindow(BRect(200, 200, 550, 420), fTarget.get()));
	_ExpectOnlyThePort();
}


TEST_F(ConnectWindowTest, AddressOfBlanks_StaysAndPostsNothing)
{
	for (const char* address : {"", " ", " \t  "}) {
		SCOPED_TRACE(address);
		fWindow->SetText("address", address);
		fWindow->Invoke("connect");
		EXPECT_TRUE(fWindow->IsAlive());
		EXPECT_EQ(0, fTarget->CountMessages());
	}
}


TEST_F(ConnectWindowTest, BlanksAroundTheAddress_AreNotSent)
{
	fWindow->SetText("address", "  localhost \t");
	fWindow->Invoke("connect");
	EXPECT_STREQ("localhost", fTarget->OnlyMessage().GetString("address"));
}


TEST_F(ConnectWindowTest, Port_IsReadAsANumberOrElseTheDefault)
{
	const std::map<std::string, int> ports = {{"1", 1}, {"65535", 65535}, {"123abc", 123},
		{"0", 5500}, {"-1", 5500}, {"65536", 5500}, {"abc", 5500}, {"", 5500}, {" ", 5500},
		{"4294967297", 5500}, {"99999999999999999999", 5500}, {"-99999999999999999999", 5500}};
	for (const auto& [typed, port] : ports) {
		SCOPED_TRACE(typed);
		Open(new ConnectWindow(BRect(200, 200, 550, 420), fTarget.get()));
		_Fill("host", typed.c_str(), "", "");
		fWindow->Invoke("connect");
		const BMessage request = fTarget->Messages().back();
		EXPECT_EQ(port, static_cast<uint16>(request.GetInt16("port", 0)));
	}
}


TEST_F(ConnectWindowTest, Cancel_ClosesAndPostsNothing)
{
	fWindow->SetText("address", "host");
	fWindow->Invoke("cancel");
	fWindow->WaitForEnd();
	EXPECT_EQ(0, fTarget->CountMessages());
}


TEST_F(ConnectWindowTest, TheTarget_MayBeGone)
{
	fTarget.reset();
	fWindow->SetText("address", "host");
	fWindow->Invoke("connect");
	fWindow->WaitForEnd();
}


TEST_F(ConnectWindowTest, HostileLogin_IsSentAsTyped)
{
	const std::string login = "<b>&amp;%s[*]&File";
	_Fill(login.c_str(), "1", login.c_str(), login.c_str());
	fWindow->Invoke("connect");
	fTarget->ExpectOnly(built_message(kMsgConnectServer, "address", login, "port",
		static_cast<int16>(1), "login", login, "password", login));
}
