/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CONTROLLER_FIXTURE_H
#define CONTROLLER_FIXTURE_H


#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Application.h>
#include <Message.h>

#include "RawServer.h"
#include "WindowProbe.h"


/*!	Connect and Disconnect, then Chat, Users and Files, then Tracker and Options: the initial letter
	of each that is enabled, "-" for the others.
*/
std::string enabled_buttons(const WindowProbe& window);


/*!	What tells the controller that a transfer may begin.
	\param port Where the transfer's own server listens, which is behind that of the connection.
*/
BMessage granted_transfer(uint32 what, uint32 reference, uint32 size, uint16 port);


/*!	A main window with its chat and user list window, all of them shown, a look at what they show,
	and a server of the test's own to connect to.
*/
class ControllerFixture : public testing::Test {
protected:
	ControllerFixture();
	~ControllerFixture() override;

	// Posts to the main window and waits until all three windows have handled what came of it.
	void Post(BMessage* message);
	// The same with one field, unless its name is empty.
	void Post(uint32 what, const char* field = "", const std::string& text = "");
	void Settle();

	// What the chat window got since the last call, which must be in this one color.
	void ExpectChat(const std::string& text, uint8 red, uint8 green, uint8 blue);
	void ExpectNoChat() { ExpectChat("", 0, 0, 0); }
	void ForgetChat() { fChatSeen = fChat.Transcript("chatview").size(); }
	// The same for the beginning of it; what follows is for the next call.
	void ExpectChatBegins(const std::string& text, uint8 red, uint8 green, uint8 blue);
	// The same as that, for what comes of the network: waits for the text.
	void AwaitChat(const std::string& text, uint8 red, uint8 green, uint8 blue);

	std::string Status() const { return fMain.Label("status"); }
	std::string Title() const { return fMain.Window()->Title(); }
	// Those of the buttons that follow the connection.
	std::string Buttons() const { return enabled_buttons(fMain).substr(0, 5); }
	std::string Nick(int32 row) const;
	int32 CountUsers() const;
	bool MayChat() const { return fChat.IsEnabled("chatinput"); }

	static BMessage ConnectMessage(const std::string& address, uint16 port);
	// Asks for a connection, and waits until it is announced.
	void Dial(uint16 port, const std::string& address = "127.0.0.1");
	void AwaitDialing(uint16 port, const std::string& address = "127.0.0.1");
	// What a login says; a server may have no name.
	void AwaitLogIn(const std::string& name);
	// All of it, on the test's own server; what the client asks for by itself has been read.
	void LogIn(const std::string& name = "Harbor");
	// What was sent before, if anything, would be in front.
	void ExpectNothingSent();

	RawServer fServer;
	WindowProbe fMain;
	WindowProbe fChat;
	WindowProbe fUsers;

private:
	size_t fChatSeen;
};


/*!	The windows of this class, in the order of opening. */
template<class Class>
std::vector<Class*>
open_windows()
{
	std::vector<Class*> windows;
	for (int32 i = 0; i < be_app->CountWindows(); i++) {
		Class* window = dynamic_cast<Class*>(be_app->WindowAt(i));
		if (window != NULL)
			windows.push_back(window);
	}
	return windows;
}


/*!	The newest one, \c NULL if there is none. */
template<class Class>
Class*
find_window()
{
	const std::vector<Class*> windows = open_windows<Class>();
	return windows.empty() ? NULL : windows.back();
}


template<class Class>
int32
count_windows()
{
	return static_cast<int32>(open_windows<Class>().size());
}


/*!	Without a word to whoever opened it, as if that stood in a queue. */
inline void
close_silently(BWindow* window)
{
	if (window->Lock())
		window->Quit();
}


#endif // CONTROLLER_FIXTURE_H
