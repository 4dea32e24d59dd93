/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CONNECT_WINDOW_H
#define CONNECT_WINDOW_H


#include <Messenger.h>
#include <Window.h>


class BLooper;
class BTextControl;


/*!	The dialog that asks where to connect to. Posts one kMsgConnectServer to its target and closes
	itself.
	Remembers nothing: every opening is a new window with the default texts.
*/
class ConnectWindow : public BWindow {
public:
	ConnectWindow(BRect frame, BLooper* target);
	~ConnectWindow() override;

	void MessageReceived(BMessage* message) override;
	bool QuitRequested() override;

private:
	void _InitFields();
	void _HandleConnect();
	uint16 _Port() const;

	BTextControl* fAddressField;
	BTextControl* fPortField;
	BTextControl* fLoginField;
	BTextControl* fPasswordField;
	BLooper* fTarget;
	BMessenger fMessenger{fTarget};
};


#endif // CONNECT_WINDOW_H
