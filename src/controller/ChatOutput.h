/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CHAT_OUTPUT_H
#define CHAT_OUTPUT_H


#include <GraphicsDefs.h>
#include <Messenger.h>


class BLooper;
class BMessage;


/*!	All that the chat window shows and whether one can type there, as the controller tells it. Lives
	in the main window's thread.
*/
class ChatOutput {
public:
	explicit ChatOutput(BLooper* chatWindow);

	void Append(const char* text, rgb_color color, uint32 connection = 0);
	void Announce(const char* what, const char* detail, rgb_color color);
	void Enable(bool enabled, uint32 connection);

	void ShowChat(const BMessage* message);
	void ShowBroadcast(const BMessage* message);
	void ShowServerMessage(const BMessage* message);
	void ShowPrivateMessage(const BMessage* message);
	void ShowAgreement(const BMessage* message);

private:
	const BMessenger fChatWindow;
};


#endif // CHAT_OUTPUT_H
