/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Message.h>

#include "AboutWindow.h"
#include "AppMessages.h"
#include "ChatColors.h"
#include "HotlineClient.h"
#include "MainWindow.h"
#include "MessageWindow.h"
#include "OptionsWindow.h"
#include "TrackerWindow.h"


// #pragma mark - Private messages


/*!	Brings the conversation with a user to the front, a new one if there is none. Where a closed one
	was there may be a window of another kind by now.
	\param received What it gets, unless it is NULL: posted while it cannot close.
*/
MessageWindow*
MainWindow::_FindOrCreatePM(uint16 socket, const char* nick, BMessage* received)
{
	for (int32 i = 0; i < fMsgWindows.CountItems(); i++) {
		BWindow* open = static_cast<BWindow*>(fMsgWindows.ItemAt(i));
		if (!open->Lock())
			continue;

		MessageWindow* window = dynamic_cast<MessageWindow*>(open);
		const bool found = window != NULL && window->Socket() == socket && !window->IsClosing();
		if (found) {
			window->SetNick(nick);
			if (window->IsMinimized())
				window->Minimize(false);
			window->Activate(true);
			if (received != NULL)
				window->PostMessage(received);
		}
		open->Unlock();
		if (found)
			return window;
	}

	MessageWindow* window = new MessageWindow(BRect(200, 200, 550, 420), this, socket, nick,
		_CurrentConnection());
	// A closed one that is still listed may have been at this very address.
	fMsgWindows.RemoveItem(window);
	fMsgWindows.AddItem(window);
	if (received != NULL)
		window->PostMessage(received);
	window->Show();
	return window;
}


/*!	Who has no id is the server itself, and speaks in the chat. */
void
MainWindow::_HandleMessageReceived(const BMessage* message)
{
	const char* text = message->GetString("text", "");
	const uint16 socket = message->GetUInt16("socket", 0);
	if (socket == 0) {
		BString line;
		line << "\n*** Server message ***\n" << text << "\n";
		_ChatAppend(line.String(), kServerMessageColor);
		return;
	}

	const char* nick = message->GetString("nick", "???");
	BMessage received(kMsgPMReceived);
	received.AddString("nick", nick);
	received.AddString("text", text);
	_FindOrCreatePM(socket, nick, &received);
}


void
MainWindow::_HandleSendMessage(const BMessage* message)
{
	const uint16 socket = message->GetUInt16("socket", 0);
	const char* text = message->GetString("text", "");
	if (_IsConnected() && socket != 0 && text[0] != '\0')
		fClient->SendPrivateMsg(socket, text);
}


/*!	Forgets a window that has closed: it is gone when its notice arrives. One that lives at the same
	address has been opened since and stays. A notice that does not tell the window means the newest
	one of its user.
*/
void
MainWindow::_HandleMessageWindowClosed(const BMessage* message)
{
	const uint16 socket = message->GetUInt16("socket", 0);
	const void* closed = message->GetPointer("window");
	for (int32 i = fMsgWindows.CountItems() - 1; i >= 0; i--) {
		BWindow* window = static_cast<BWindow*>(fMsgWindows.ItemAt(i));
		bool found = closed != NULL && window == closed;
		if (window->Lock()) {
			const MessageWindow* open = dynamic_cast<MessageWindow*>(window);
			found = closed == NULL && open != NULL && open->Socket() == socket;
			window->Unlock();
		}
		if (found) {
			fMsgWindows.RemoveItem(i);
			return;
		}
	}
}


void
MainWindow::_HandleOpenMessages(const BMessage* message)
{
	const uint16 socket = message->GetUInt16("socket", 0);
	if (socket == 0)
		return;
	BWindow* window = _FindOrCreatePM(socket, message->GetString("nick", "???"));
	if (window->Lock()) {
		window->Activate(true);
		window->Unlock();
	}
}


// #pragma mark - Tracker, options and about


void
MainWindow::_HandleToolTracker()
{
	BWindow* window = new TrackerWindow(BRect(150, 100, 650, 450), this, fTrackerAddress.String());
	window->Show();
}


void
MainWindow::_HandleToolOptions()
{
	BWindow* window = new OptionsWindow(BRect(200, 150, 520, 550), this, fNickname.String(),
		fIconID, fTrackerAddress.String(), fAssetsPath.String());
	window->Show();
}


void
MainWindow::_HandleToolAbout()
{
	BWindow* window = new AboutWindow(fAppRootPath.String());
	window->Show();
}


/*!	An empty field leaves its setting as it was. The server hears of a new nick or icon only. */
void
MainWindow::_HandleOptionsSave(const BMessage* message)
{
	const char* tracker = message->GetString("tracker", "");
	if (tracker[0] != '\0')
		fTrackerAddress = tracker;

	bool changed = false;
	const char* nick = message->GetString("nick", "");
	if (nick[0] != '\0' && fNickname != nick) {
		fNickname = nick;
		changed = true;
	}
	const uint16 icon = message->GetUInt16("icon", fIconID);
	if (icon != fIconID) {
		fIconID = icon;
		changed = true;
	}
	if (changed && _IsConnected())
		fClient->ChangeNickAndIcon(fNickname.String(), fIconID);
}
