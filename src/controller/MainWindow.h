/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MAIN_WINDOW_H
#define MAIN_WINDOW_H


#include <memory>

#include <Messenger.h>
#include <Window.h>

#include "Agreements.h"
#include "ChatOutput.h"
#include "ConnectionBar.h"
#include "Conversations.h"
#include "FolderWindows.h"
#include "ProgramFolder.h"
#include "ServerBanner.h"
#include "ServerRequests.h"
#include "Settings.h"
#include "Transfers.h"


class BMenuBar;
class ChatWindow;
class HotlineClient;
class UserListWindow;


/*!	The bar at the top of the screen, and the controller of the program.
	Owns the connection and the parts that do what there is to be done. Every user action and every
	event of the connection arrives here as a message and is given to its part; nothing else touches
	any of them, which need no lock for that reason. Other windows are loopers of their own and are
	only posted to.
*/
class MainWindow : public BWindow {
public:
	MainWindow();
	~MainWindow() override;

	void MessageReceived(BMessage* message) override;
	bool QuitRequested() override;

private:
	static const char* const kTitle;

	void _InitMenu();
	void _InitToolbar();

	// Each handles the messages of one origin; false if the message is none of them.
	bool _DispatchNotification(const BMessage* message);
	bool _DispatchCommand(const BMessage* message);
	bool _DispatchRequest(const BMessage* message);
	bool _DispatchTransfer(const BMessage* message);

	void _HandleConnected();
	void _HandleConnectFailed(const BMessage* message);
	void _HandleLoggedIn();
	void _HandleConnectionLost();
	void _HandleServerInfo(const BMessage* message);
	void _HandlePoliteQuit();
	void _HandleUserChanged(const BMessage* message);
	void _HandleUserLeft(const BMessage* message);
	void _HandleMessageReceived(const BMessage* message);
	void _HandleOpenMessages(const BMessage* message);
	void _HandleToolDisconnect();
	void _HandleTextFull();
	void _HandleAcceptAgreement();
	void _HandleDeclineAgreement();

	MessageWindow* _FindOrCreatePM(uint16 socket, const char* nick);
	void _OpenFileList(const char* path);

	void _Connect(const BMessage* message);
	void _Disconnect();
	uint32 _CurrentConnection() const;

	void _ChatAppend(const char* text, rgb_color color) { fChat.Append(text, color); }
	void _ChatEnable(bool enabled) { fChat.Enable(enabled, _CurrentConnection()); }
	void _RevealChat();
	void _RevealUsers();
	void _UsersClear();

	// Borrowed; they live until the destructor quits them.
	ChatWindow* fChatWindow;
	UserListWindow* fUserListWindow;
	const BMessenger fUserList;

	// The current connection; none before the first one and after a disconnect.
	std::unique_ptr<HotlineClient> fClient;

	const ProgramFolder fFolder;
	Settings fSettings;
	ChatOutput fChat;
	ServerRequests fRequests;
	Agreements fAgreements;
	Conversations fConversations;
	FolderWindows fFolders;
	Transfers fTransfers;

	// The views belong to the window.
	BMenuBar* fMenuBar;
	ServerBanner fBanner;
	ConnectionBar fBar;
};


#endif // MAIN_WINDOW_H
