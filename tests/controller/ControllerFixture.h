/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CONTROLLER_FIXTURE_H
#define CONTROLLER_FIXTURE_H


#include <string>

#include <gtest/gtest.h>

#include <Application.h>
#include <Message.h>

#include "WindowProbe.h"


/*!	A main window with its chat and user list window, all of them shown, and a look at what they
	show.
*/
class ControllerFixture : public testing::Test {
protected:
	ControllerFixture();
	~ControllerFixture() override;

	// Posts to the main window and waits until all three windows have handled what came of it.
	void Post(BMessage* message);
	void Post(uint32 what);
	void Post(uint32 what, const char* field, const std::string& text);
	void Settle();

	// What the chat window got since the last call, which must be in this one color.
	void ExpectChat(const std::string& text, uint8 red, uint8 green, uint8 blue);
	void ExpectNoChat();
	// The same for the beginning of it; what follows is for the next call.
	void ExpectChatBegins(const std::string& text, uint8 red, uint8 green, uint8 blue);
	// The same as that, for what comes of the network: waits for the text.
	void AwaitChat(const std::string& text, uint8 red, uint8 green, uint8 blue);

	std::string Status() const { return fMain.Label("status"); }
	std::string Title() const { return fMain.Window()->Title(); }
	// The states of Connect and Disconnect, then of Chat, Users and Files: "-" or the initial
	// letter.
	std::string Buttons() const;
	std::string Nick(int32 row) const;
	int32 CountUsers() const;
	bool MayChat() const { return fChat.IsEnabled("chatinput"); }

	WindowProbe fMain;
	WindowProbe fChat;
	WindowProbe fUsers;

private:
	size_t fChatSeen;
};


/*!	The newest open window of this class, \c NULL if there is none. */
template<class Class>
Class*
find_window()
{
	for (int32 i = be_app->CountWindows() - 1; i >= 0; i--) {
		Class* window = dynamic_cast<Class*>(be_app->WindowAt(i));
		if (window != NULL)
			return window;
	}
	return NULL;
}


template<class Class>
int32
count_windows()
{
	int32 count = 0;
	for (int32 i = 0; i < be_app->CountWindows(); i++) {
		if (dynamic_cast<Class*>(be_app->WindowAt(i)) != NULL)
			count++;
	}
	return count;
}


#endif // CONTROLLER_FIXTURE_H
