/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CHAT_WINDOW_H
#define CHAT_WINDOW_H


#include <Messenger.h>
#include <Window.h>


class BLooper;
class BScrollView;
class BTextView;
class EntryLine;


/*!	The public chat: a transcript in colors and a line to type into.
	Every line shown arrives as kMsgAppendChat, what is typed leaves as kMsgSendChat. Lives as long
	as the program: closing it minimizes it.
*/
class ChatWindow : public BWindow {
public:
	ChatWindow(BRect frame, BLooper* target);
	~ChatWindow() override;

	void MessageReceived(BMessage* message) override;
	bool QuitRequested() override;

private:
	void _HandleSend();
	void _HandleAppend(const BMessage* message);
	void _HandleEnable(const BMessage* message);
	void _AppendChat(const char* text, rgb_color color, uint32 connection);
	void _TellFull(uint32 connection);

	BTextView* fChatView;
	BScrollView* fChatScroll;
	EntryLine* fChatInput;
	BLooper* fTarget;
	BMessenger fMessenger{fTarget};
	// The number of the connection that what is typed is meant for.
	uint32 fConnection;
	// There was no memory for a line; until chat is enabled or disabled again none is shown.
	bool fIsFull;
};


#endif // CHAT_WINDOW_H
