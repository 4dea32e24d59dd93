/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MESSAGE_WINDOW_H
#define MESSAGE_WINDOW_H


#include <Messenger.h>
#include <String.h>
#include <Window.h>


class BLooper;
class BScrollView;
class BTextView;
class EntryLine;


/*!	A private conversation with one other user, known by the server's id.
	What arrives comes as kMsgPMReceived, what is typed leaves as kMsgPMSend after it was shown
	here. Tells the controller when it closes; the transcript is gone then. What arrives while it is
	closing goes back to the controller.
*/
class MessageWindow : public BWindow {
public:
	MessageWindow(BRect frame, BLooper* target, uint16 socket, const char* nick,
		uint32 connection = 0);
	~MessageWindow() override;

	uint16 Socket() const { return fSocket; }
	const char* Nick() const { return fNick.String(); }
	void SetNick(const char* nick);
	// Whether it has been asked to close, which it will do.
	bool IsClosing() const { return fIsClosing; }

	void AppendIncoming(const char* nick, const char* text);
	void AppendOutgoing(const char* text);

	void DispatchMessage(BMessage* message, BHandler* handler) override;
	void MessageReceived(BMessage* message) override;
	bool QuitRequested() override;

private:
	void _HandleReceived(const BMessage* message);
	void _ReturnReceived(const BMessage* message);
	void _HandleSend();
	void _AppendStyled(const char* name, rgb_color nameColor, const char* text);

	BTextView* fChatView;
	BScrollView* fChatScroll;
	EntryLine* fInput;
	BLooper* fTarget;
	BMessenger fMessenger{fTarget};
	uint16 fSocket;
	BString fNick;
	const uint32 fConnection;
	bool fIsClosing;
};


#endif // MESSAGE_WINDOW_H
