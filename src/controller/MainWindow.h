/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MAIN_WINDOW_H
#define MAIN_WINDOW_H


#include <memory>

#include <List.h>
#include <String.h>
#include <Window.h>


class BannerView;
class BButton;
class BMenuBar;
class BStringView;
class ChatWindow;
class HotlineClient;
class MessageWindow;
class UserListWindow;


/*!	The bar at the top of the screen, and the controller of the program.
	Owns the connection and the settings. Every user action and every event of the connection
	arrives here as a message; nothing else touches its state, which needs no lock for that reason.
	Other windows are loopers of their own and are only posted to.
*/
class MainWindow : public BWindow {
public:
	MainWindow();
	~MainWindow() override;

	void MessageReceived(BMessage* message) override;
	bool QuitRequested() override;

private:
	static const char* const kTitle;
	static const char* const kDefaultNickname;

	void _FindFolders();
	void _InitMenu();
	void _InitToolbar();
	void _InitButtonIcons();

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
	void _HandleChatReceived(const BMessage* message);
	void _HandleBroadcast(const BMessage* message);
	void _HandleTaskError(const BMessage* message);
	void _HandlePoliteQuit();
	void _HandleUserChanged(const BMessage* message);
	void _HandleUserLeft(const BMessage* message);
	void _HandleAgreement(const BMessage* message);
	void _HandleToolConnect();
	void _HandleToolDisconnect();
	void _HandleToolUsers();
	void _HandleSendChat(const BMessage* message);
	void _HandleAcceptAgreement();
	void _HandleDeclineAgreement();

	MessageWindow* _FindOrCreatePM(uint16 socket, const char* nick, BMessage* received = NULL);
	void _HandleMessageReceived(const BMessage* message);
	void _HandleSendMessage(const BMessage* message);
	void _HandleMessageWindowClosed(const BMessage* message);
	void _HandleOpenMessages(const BMessage* message);

	void _OpenFileList(const char* path);
	void _HandleFileList(const BMessage* message);
	void _HandleFileWindowClosed(const BMessage* message);
	void _HandleOpenFolder(const BMessage* message);
	void _HandleDownloadFile(const BMessage* message);
	void _HandleUploadFile(const BMessage* message);
	void _HandleDownloadReady(const BMessage* message);
	void _HandleUploadReady(const BMessage* message);
	void _ReportTransfer(const char* kind, const BMessage* message);
	void _HandleBannerReady(const BMessage* message);
	void _HandleBannerData(const BMessage* message);

	void _HandleToolTracker();
	void _HandleToolOptions();
	void _HandleToolAbout();
	void _HandleOptionsSave(const BMessage* message);

	void _Connect(const BMessage* message);
	void _Disconnect();
	void _ReleaseClient();
	void _CloseWindows(BList& windows);
	bool _IsConnected() const;
	uint32 _CurrentConnection() const;

	void _ChatAppend(const char* text, rgb_color color);
	void _ChatEnable(bool enabled);
	void _RevealChat();
	void _RevealUsers();
	void _UsersClear();
	void _ClearBanner();
	void _EnableButtons(bool loggedIn);
	void _SetStatusToServer(const char* name);

	// Borrowed; they live until the destructor quits them.
	ChatWindow* fChatWindow;
	UserListWindow* fUserListWindow;
	// Borrowed; a window that has closed stays until it says so, and Lock() on it fails.
	BList fFileWindows;
	BList fMsgWindows;

	BMenuBar* fMenuBar;
	BButton* fConnectBtn;
	BButton* fDisconnectBtn;
	BButton* fChatBtn;
	BButton* fUsersBtn;
	BButton* fFilesBtn;
	BButton* fTrackerBtn;
	BButton* fOptionsBtn;
	BStringView* fStatusView;
	BannerView* fBannerView;

	// The current connection; none before the first one and after a disconnect.
	std::unique_ptr<HotlineClient> fClient;

	BString fNickname;
	uint16 fIconID;
	BString fTrackerAddress;
	// All empty where the program's own folder is unknown.
	BString fAssetsPath;
	BString fDownloadsPath;
	BString fAppRootPath;
};


#endif // MAIN_WINDOW_H
