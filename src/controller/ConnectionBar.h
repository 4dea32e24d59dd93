/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CONNECTION_BAR_H
#define CONNECTION_BAR_H


#include <LayoutBuilder.h>
#include <String.h>


class BButton;
class BStringView;


/*!	The main window's buttons and its status line, which say what state the connection is in. Lives
	in the thread of that window, which owns the views once they have been added to its layout.
*/
class ConnectionBar {
public:
	explicit ConnectionBar(const char* assetsPath);

	void AddTo(BLayoutBuilder::Group<>* layout);

	void ShowNotConnected();
	void ShowConnecting(const char* address, uint16 port);
	void ShowLoggingIn();
	void ShowLoggedIn(const char* serverName);
	void ShowServer(const char* name);
	void ShowFailed();
	void ShowLost();
	void ShowOutOfMemory();

private:
	void _EnableButtons(bool loggedIn);
	void _ShowStatus(BString text);

	BButton* fConnectBtn;
	BButton* fDisconnectBtn;
	BButton* fChatBtn;
	BButton* fUsersBtn;
	BButton* fFilesBtn;
	BButton* fTrackerBtn;
	BButton* fOptionsBtn;
	BStringView* fStatusView;
};


#endif // CONNECTION_BAR_H
