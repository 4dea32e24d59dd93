/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Conversations.h"

#include <Message.h>

#include "AppMessages.h"
#include "MessageWindow.h"


Conversations::Conversations(BLooper* target)
	: fTarget(target)
{
}


/*!	Brings the conversation with a user to the front, a new one if there is none.
	\param connection The number of the connection on which that user is.
*/
MessageWindow*
Conversations::FindOrCreate(uint16 socket, const char* nick, uint32 connection)
{
	MessageWindow* window = _Find(socket, nick, NULL);
	return window != NULL ? window : _Create(socket, nick, connection, NULL);
}


/*!	\param message A kHLMsgReceived of a user, who has an id.
	\return \c false where it would open one window too many: then it has not been shown.
*/
bool
Conversations::Receive(const BMessage* message, uint32 connection)
{
	const uint16 socket = message->GetUInt16("socket", 0);
	const char* nick = message->GetString("nick", "???");
	BMessage received(kMsgPMReceived);
	received.AddString("nick", nick);
	received.AddString("text", message->GetString("text", ""));
	if (_Find(socket, nick, &received) != NULL)
		return true;
	if (fMsgWindows.CountOpen() >= kMaxOpenedByOthers)
		return false;
	_Create(socket, nick, connection, &received);
	return true;
}


/*!	\param notice A kMsgPMWinClosed: the window is gone when it arrives. One that does not tell the
	window means the newest one of its user.
*/
void
Conversations::Forget(const BMessage* notice)
{
	const void* closed = notice->GetPointer("window");
	if (closed != NULL) {
		fMsgWindows.RemoveGone(closed);
		return;
	}
	const uint16 socket = notice->GetUInt16("socket", 0);
	fMsgWindows.Remove(fMsgWindows.UseLast([socket](const MessageWindow* open) {
		return open->Socket() == socket;
	}));
}


/*!	Asks every window to close and forgets it. */
void
Conversations::CloseAll()
{
	fMsgWindows.CloseAll();
}


/*!	Ends every window without asking it. */
void
Conversations::QuitAll()
{
	fMsgWindows.QuitAll();
}


/*!	Brings an open conversation to the front.
	\param received What it gets, unless it is NULL: posted while it cannot close.
	\return NULL if there is none.
*/
MessageWindow*
Conversations::_Find(uint16 socket, const char* nick, BMessage* received)
{
	return fMsgWindows.UseFirst([&](MessageWindow* open) {
		if (open->Socket() != socket || open->IsClosing())
			return false;
		open->SetNick(nick);
		if (open->IsMinimized())
			open->Minimize(false);
		open->Activate(true);
		if (received != NULL)
			open->PostMessage(received);
		return true;
	});
}


MessageWindow*
Conversations::_Create(uint16 socket, const char* nick, uint32 connection, BMessage* received)
{
	MessageWindow* window = new MessageWindow(BRect(200, 200, 550, 420), fTarget, socket, nick,
		connection);
	// A closed one that is still listed may have been at this very address.
	fMsgWindows.Remove(window);
	fMsgWindows.Add(window);
	if (received != NULL)
		window->PostMessage(received);
	window->Show();
	return window;
}
