/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ControllerFixture.h"

#include <tuple>

#include <Control.h>
#include <ListView.h>
#include <TextView.h>

#include "ChatWindow.h"
#include "MainWindow.h"
#include "UserListWindow.h"
#include "WaitFor.h"


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
	if (fMain.IsAlive() && fMain.Window()->Lock())
		fMain.Window()->Quit();
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
ControllerFixture::Post(uint32 what)
{
	BMessage message(what);
	Post(&message);
}


void
ControllerFixture::Post(uint32 what, const char* field, const std::string& text)
{
	BMessage message(what);
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
	fChatSeen = fChat.Transcript("chatview").size();
}


void
ControllerFixture::ExpectNoChat()
{
	ExpectChat("", 0, 0, 0);
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
		view->GetFontAndColor(int32(fChatSeen), NULL, &color);
		EXPECT_EQ(std::make_tuple(red, green, blue),
			std::make_tuple(color.red, color.green, color.blue))
			<< "offset " << fChatSeen;
	}
}


void
ControllerFixture::AwaitChat(const std::string& text, uint8 red, uint8 green, uint8 blue)
{
	EXPECT_TRUE(WaitFor([&] {
		return fChat.Transcript("chatview").size() >= fChatSeen + text.size();
	})) << text;
	ExpectChatBegins(text, red, green, blue);
}


std::string
ControllerFixture::Buttons() const
{
	std::string states;
	for (const char* name : {"connect", "disconnect", "chat", "users", "files"})
		states += fMain.IsEnabled(name) ? name[0] : '-';
	return states;
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
