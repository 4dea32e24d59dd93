/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MESSAGE_WINDOW_H
#define MESSAGE_WINDOW_H


#include <String.h>
#include <Window.h>


class BLooper;
class BScrollView;
class BTextControl;
class BTextView;


/*!	A private conversation with one other user, known by the server's id.
	What arrives comes as kMsgPMReceived, what is typed leaves as kMsgPMSend after it was shown here. Tells the controller
	when it closes; the transcript is gone then.
*/
class MessageWindow : public BWindow {
public:
	MessageWindow(BRect frame, BLooper* target, uint16 socket, const char* nick);
	~MessageWindow() override;

	uint16 Socket() const { return fSocket; }
	const char* Nick() const { return fNick.String(); }
	void SetNick(const char* nick);

	void AppendIncoming(const char* nick, const char* text);
	void AppendOutgoing(const char* text);

	void MessageReceived(BMessage* message) override;
	bool QuitRequested() override;

private:
	void _HandleReceived(const BMessage* message);
	void _HandleSend();
	void _AppendStyled(const char* name, rgb_color nameColor, const char* text);

	BTextView* fChatView;
	BScrollView* fChatScroll;
	BTextControl* fInput;
	BLooper* fTarget;
	uint16 fSocket;
	BString fNick;
};


#endif // MESSAGE_WINDOW_H
