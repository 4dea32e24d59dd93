/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CONVERSATIONS_H
#define CONVERSATIONS_H


#include <SupportDefs.h>

#include "WindowList.h"


class BLooper;
class BMessage;
class MessageWindow;


/*!	The private message windows, one for each user who is talked to, known by the server's id. Lives
	in the main window's thread; borrows the windows, and the target that they post to.
*/
class Conversations {
public:
	// Beyond so many nobody but the user opens one more.
	static const int32 kMaxOpenedByOthers = 100;

	explicit Conversations(BLooper* target);

	MessageWindow* FindOrCreate(uint16 socket, const char* nick, uint32 connection);
	[[nodiscard]] bool Receive(const BMessage* message, uint32 connection);
	void Forget(const BMessage* notice);
	void CloseAll();
	void QuitAll();

private:
	MessageWindow* _Find(uint16 socket, const char* nick, BMessage* received);
	MessageWindow* _Create(uint16 socket, const char* nick, uint32 connection, BMessage* received);

	BLooper* fTarget;
	WindowList<MessageWindow> fMsgWindows;
};


#endif // CONVERSATIONS_H
