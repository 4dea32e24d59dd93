/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ControllerFixture.h"

#include <tuple>

#include <Control.h>
#include <ListView.h>
#include <TextView.h>

#include "AppMessages.h"
#include "ChatWindow.h"
#include "MainWindow.h"
#include "UserListWindow.h"
#include "WaitFor.h"


std::string
enabled_buttons(const WindowProbe& window)
{
	std::string states;
	for (const char* name :
		{"connect", "disconnect", "chat", "users", "files", "tracker", "options"})
		states += window.IsEnabled(name) ? name[0] : '-';
	return states;
}


BMessage
granted_transfer(uint32 what, uint32 reference, uint32 size, uint16 port)
{
	BMessage grant(what);
	grant.AddUInt32("ref", reference);
	grant.AddUInt32("size", size);
	grant.AddString("address", "127.0.0.1");
	grant.AddUInt16("port", static_cast<uint16>(port - 1));
	return grant;
}


static BWindow*
new_main_window()
{
	BWindow* window = new MainWindow();
	window->Show();
	return window;
}


ControllerFixture::ControllerFixture()
	: fMain(new_main_window()),
	  fChat(find_window<ChatWindow>()),
	  fUsers(find_window<UserListWindow>()),
	  fChatSeen(0)
{
	Settle();
}


/*!	The main window takes all that is open with it, except for dialogs, which a test closes itself.
*/
ControllerFixture::~ControllerFixture()
{
	if (fMain.IsAlive())
		close_silently(fMain.Window());
	EXPECT_FALSE(fChat.IsAlive());
	EXPECT_FALSE(fUsers.IsAlive());
}


void
ControllerFixture::Post(BMessage* message)
{
	fMain.Post(message);
	fChat.Settle();
	fUsers.Settle();
}


void
ControllerFixture::Post(uint32 what, const char* field, const std::string& text)
{
	BMessage message(what);
	if (field[0] != '\0')
		message.AddString(field, text.c_str());
	Post(&message);
}


void
ControllerFixture::Settle()
{
	fMain.Settle();
	fChat.Settle();
	fUsers.Settle();
}


void
ControllerFixture::ExpectChat(const std::string& text, uint8 red, uint8 green, uint8 blue)
{
	EXPECT_EQ(text, fChat.Transcript("chatview").substr(fChatSeen));
	ExpectChatBegins(text, red, green, blue);
	ForgetChat();
}


void
ControllerFixture::ExpectChatBegins(const std::string& text, uint8 red, uint8 green, uint8 blue)
{
	EXPECT_EQ(text, fChat.Transcript("chatview").substr(fChatSeen, text.size()));
	const BTextView* view = fChat.Find<BTextView>("chatview");
	for (const size_t end = fChatSeen + text.size(); fChatSeen < end; fChatSeen++) {
		if (text[text.size() - (end - fChatSeen)] == '\n')
			continue;
		rgb_color color = {1, 2, 3, 4};
		view->GetFontAndColor(static_cast<int32>(fChatSeen), NULL, &color);
		EXPECT_EQ(std::make_tuple(red, green, blue),
			std::make_tuple(color.red, color.green, color.blue))
			<< "offset " << fChatSeen;
	}
}


void
ControllerFixture::AwaitChat(const std::string& text, uint8 red, uint8 green, uint8 blue)
{
	EXPECT_SOON(fChat.Transcript("chatview").size() >= fChatSeen + text.size()) << text;
	ExpectChatBegins(text, red, green, blue);
}


std::string
ControllerFixture::Nick(int32 row) const
{
	return static_cast<BStringItem*>(fUsers.Find<BListView>("userlist")->ItemAt(row))->Text();
}


int32
ControllerFixture::CountUsers() const
{
	return fUsers.Find<BListView>("userlist")->CountItems();
}


// #pragma mark - Connecting


BMessage
ControllerFixture::ConnectMessage(const std::string& address, uint16 port)
{
	BMessage message(kMsgConnectServer);
	message.AddString("address", address.c_str());
	message.AddInt16("port", static_cast<int16>(port));
	return message;
}


void
ControllerFixture::Dial(uint16 port, const std::string& address)
{
	BMessage connect = ConnectMessage(address, port);
	Post(&connect);
	AwaitDialing(port, address);
}


void
ControllerFixture::AwaitDialing(uint16 port, const std::string& address)
{
	AwaitChat("*** Connecting to " + address + ":" + std::to_string(port) + " ***\n", 100, 100,
		100);
}


void
ControllerFixture::AwaitLogIn(const std::string& name)
{
	AwaitChat("*** Connected — logging in ***\n", 0, 128, 0);
	if (!name.empty())
		AwaitChat("*** Server: " + name + " (v190) ***\n", 0, 100, 0);
	AwaitChat("*** Logged in ***\n", 0, 128, 0);
}


void
ControllerFixture::LogIn(const std::string& name)
{
	Dial(fServer.Port());
	fServer.AcceptAndLogIn(name);
	AwaitLogIn(name);
	fServer.ReadRequest(300);
	fServer.ReadRequest(300);
}


void
ControllerFixture::ExpectNothingSent()
{
	Post(kMsgSendChat, "text", "next");
	EXPECT_EQ("next", fServer.ReadRequest().Field(101));
}
