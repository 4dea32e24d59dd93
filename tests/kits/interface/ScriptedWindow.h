/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SCRIPTED_WINDOW_H
#define SCRIPTED_WINDOW_H


#include <functional>
#include <memory>
#include <vector>

#include <Menu.h>
#include <Messenger.h>
#include <Window.h>

#include "RunThread.h"


/*!	A window whose messages and end are given by the test, and which notes the codes that it
	received.
*/
class ScriptedWindow : public BWindow {
public:
	explicit ScriptedWindow(uint32 flags = B_AUTO_UPDATE_SIZE_LIMITS);
	~ScriptedWindow() override;

	void MessageReceived(BMessage* message) override;
	bool QuitRequested() override;

	std::function<void(BMessage*)> onMessage;
	std::function<bool()> onQuitRequested;
	std::function<void()> onDestroy;

	// Outlives the window.
	std::shared_ptr<std::vector<uint32>> Received() const { return fReceived; }

private:
	std::shared_ptr<std::vector<uint32>> fReceived;
};


/*!	Closes a window at the end of a test, if it is still there. */
class WindowCloser {
public:
	explicit WindowCloser(BWindow* window);
	~WindowCloser();

private:
	BWindow* fWindow;
	BMessenger fMessenger;
};


/*!	A ScriptedWindow that is closed at the end of a test, if it is still there. */
class OwnedWindow {
public:
	explicit OwnedWindow(uint32 flags = B_AUTO_UPDATE_SIZE_LIMITS);

	operator ScriptedWindow*() const { return fWindow; }
	ScriptedWindow* operator->() const { return fWindow; }

private:
	ScriptedWindow* fWindow;
	WindowCloser fCloser;
};


/*!	Gives the window a bar with one menu of these items.
	\return The menu.
*/
BMenu* AddMenu(BWindow* window, const std::vector<BMenuItem*>& items);

/*!	Shows the window and waits until it has taken a message. */
void ShowAndWait(ScriptedWindow* window);


#endif // SCRIPTED_WINDOW_H
