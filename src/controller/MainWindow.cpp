/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "MainWindow.h"

#include <Application.h>
#include <LayoutBuilder.h>
#include <Menu.h>
#include <MenuBar.h>
#include <MenuItem.h>
#include <Message.h>

#include "AboutWindow.h"
#include "AppMessages.h"
#include "BannerView.h"
#include "ChatColors.h"
#include "ChatWindow.h"
#include "ConnectionMark.h"
#include "ConnectWindow.h"
#include "Delivery.h"
#include "HotlineClient.h"
#include "MessageWindow.h"
#include "OptionsWindow.h"
#include "TrackerWindow.h"
#include "UserListWindow.h"


const char* const MainWindow::kTitle = "Palimbra";


static BMenuItem*
new_item(const char* label, uint32 what, char shortcut = 0)
{
	return new BMenuItem(label, new BMessage(what), shortcut);
}


/*!	Shows a window that the controller keeps no pointer to. It deletes itself. */
static void
open_window(BWindow* window)
{
	window->Show();
}


/*!	Quits a window that refuses to when it is asked to. */
static void
quit_window(BWindow* window)
{
	if (window->Lock())
		window->Quit();
}


MainWindow::MainWindow()
	: BWindow(BRect(100, 60, 700, 140), kTitle, B_TITLED_WINDOW,
		B_NOT_ZOOMABLE | B_AUTO_UPDATE_SIZE_LIMITS),
	  fChatWindow(new ChatWindow(BRect(100, 180, 650, 550), this)),
	  fUserListWindow(new UserListWindow(BRect(660, 180, 880, 550), this)),
	  fUserList(fUserListWindow),
	  fChat(fChatWindow),
	  fRequests(fClient, &fChat),
	  fAgreements(this),
	  fConversations(this),
	  fFolders(this, fFolder.AssetsPath()),
	  fTransfers(this, &fChat, fFolder.DownloadsPath()),
	  fMenuBar(new BMenuBar("menubar", B_ITEMS_IN_ROW, B_WILL_DRAW | B_FRAME_EVENTS)),
	  fBanner(this),
	  fBar(fFolder.AssetsPath())
{
	fFolder.CreateDownloads();
	_InitMenu();
	_InitToolbar();

	// Both start out of sight and are only ever revealed.
	fChatWindow->Show();
	fChatWindow->Minimize(true);
	fUserListWindow->Show();
	fUserListWindow->Minimize(true);
}


MainWindow::~MainWindow()
{
	fClient.reset();

	quit_window(fChatWindow);
	quit_window(fUserListWindow);
	fFolders.QuitAll();
	fConversations.QuitAll();
}


/*!	What belongs to an earlier connection arrives too late to mean anything. */
void
MainWindow::MessageReceived(BMessage* message)
{
	if (IsOfOtherConnection(message, _CurrentConnection()))
		return;
	if (!_DispatchNotification(message) && !_DispatchCommand(message) && !_DispatchRequest(message)
		&& !_DispatchTransfer(message))
		BWindow::MessageReceived(message);
}


bool
MainWindow::QuitRequested()
{
	if (fClient != NULL)
		fClient->Disconnect();
	be_app->PostMessage(B_QUIT_REQUESTED);
	return true;
}


void
MainWindow::_InitMenu()
{
	BMenu* server = new BMenu("Server");
	server->AddItem(new_item("Connect…", kMsgToolConnect, 'K'));
	server->AddItem(new_item("Disconnect", kMsgToolDisconnect, 'D'));
	server->AddSeparatorItem();
	server->AddItem(new_item("Options…", kMsgToolOptions));
	server->AddItem(new_item("About Palimbra", kMsgToolAbout));
	server->AddSeparatorItem();
	server->AddItem(new_item("Quit", B_QUIT_REQUESTED, 'Q'));
	fMenuBar->AddItem(server);

	BMenu* windows = new BMenu("Windows");
	windows->AddItem(new_item("Chat", kMsgToolChat, '1'));
	windows->AddItem(new_item("Users", kMsgToolUsers, '2'));
	windows->AddItem(new_item("Files", kMsgToolFiles, '3'));
	windows->AddItem(new_item("Tracker", kMsgToolTracker, 'T'));
	fMenuBar->AddItem(windows);
}


/*!	Lays the window out, with the toolbar below the menus and the banner. */
void
MainWindow::_InitToolbar()
{
	BLayoutBuilder::Group<> layout(this, B_VERTICAL, 0);
	layout.Add(fMenuBar).Add(fBanner.View());
	fBar.AddTo(&layout);
}


// #pragma mark - Dispatch


/*!	What the connection reports. */
bool
MainWindow::_DispatchNotification(const BMessage* message)
{
	switch (message->what) {
		case kHLConnected:
			_HandleConnected();
			return true;
		case kHLConnectFailed:
			_HandleConnectFailed(message);
			return true;
		case kHLLoggedIn:
			_HandleLoggedIn();
			return true;
		case kHLDisconnected:
			_HandleConnectionLost();
			return true;
		case kHLServerInfo:
			_HandleServerInfo(message);
			return true;
		case kHLChatReceived:
			fChat.ShowChat(message);
			return true;
		case kHLBroadcast:
			fChat.ShowBroadcast(message);
			return true;
		case kHLTaskError:
			fChat.Announce("Error", message->GetString("error", "Unknown error"), kFailureColor);
			return true;
		case kHLPoliteQuit:
			_HandlePoliteQuit();
			return true;
		case kHLUserJoined:
		case kHLUserChanged:
			_HandleUserChanged(message);
			return true;
		case kHLUserLeft:
			_HandleUserLeft(message);
			return true;
		case kHLAgreement:
			if (!fAgreements.Ask(message, _CurrentConnection()))
				fChat.ShowAgreement(message);
			return true;
		case kHLMsgReceived:
			_HandleMessageReceived(message);
			return true;
		case kHLFileListReceived:
			fFolders.PassOn(message);
			return true;
		default:
			return false;
	}
}


/*!	What the user picks from the toolbar or the menus. */
bool
MainWindow::_DispatchCommand(const BMessage* message)
{
	switch (message->what) {
		case kMsgToolConnect:
			open_window(new ConnectWindow(BRect(200, 200, 550, 420), this));
			return true;
		case kMsgToolDisconnect:
			_HandleToolDisconnect();
			return true;
		case kMsgToolChat:
			_RevealChat();
			return true;
		case kMsgToolUsers:
			_RevealUsers();
			fRequests.ListUsers();
			return true;
		case kMsgToolFiles:
			_OpenFileList(NULL);
			return true;
		case kMsgToolTracker:
			open_window(
				new TrackerWindow(BRect(150, 100, 650, 450), this, fSettings.TrackerAddress()));
			return true;
		case kMsgToolOptions:
			open_window(new OptionsWindow(BRect(200, 150, 520, 550), this, fSettings.Nickname(),
				fSettings.IconID(), fSettings.TrackerAddress(), fFolder.AssetsPath()));
			return true;
		case kMsgToolAbout:
			open_window(new AboutWindow(fFolder.AppRootPath()));
			return true;
		default:
			return false;
	}
}


/*!	What the other windows ask for. */
bool
MainWindow::_DispatchRequest(const BMessage* message)
{
	switch (message->what) {
		case kMsgConnectServer:
			_Connect(message);
			return true;
		case kMsgSendChat:
			fRequests.SendChat(message);
			return true;
		case kMsgTextFull:
			_HandleTextFull();
			return true;
		case kMsgAcceptAgreement:
			_HandleAcceptAgreement();
			return true;
		case kMsgDeclineAgreement:
			_HandleDeclineAgreement();
			return true;
		case kMsgOpenPM:
			_HandleOpenMessages(message);
			return true;
		case kMsgPMSend:
			fRequests.SendPrivateMessage(message);
			return true;
		case kMsgPMWinClosed:
			fConversations.Forget(message);
			return true;
		case kMsgOpenFolder:
			if (message->GetString("path", "")[0] != '\0')
				_OpenFileList(message->GetString("path"));
			return true;
		case kMsgFileWinClosed:
			fFolders.Forget(message);
			return true;
		case kMsgDownloadFile:
			fRequests.Download(message);
			return true;
		case kMsgUploadFile:
			fRequests.Upload(message);
			return true;
		case kMsgOptionsSave:
			if (fSettings.Apply(message))
				fRequests.ChangeUser(fSettings);
			return true;
		default:
			return false;
	}
}


/*!	What the server grants, and what becomes of it on the transfer threads. */
bool
MainWindow::_DispatchTransfer(const BMessage* message)
{
	switch (message->what) {
		case kHLDownloadReady:
			fTransfers.StartDownload(message);
			return true;
		case kHLUploadReady:
			fTransfers.StartUpload(message);
			return true;
		case kHLBannerReady:
			fBanner.Fetch(message, _CurrentConnection());
			return true;
		case kMsgDownloadDone:
			fTransfers.Report("Download", message);
			return true;
		case kMsgUploadDone:
			fTransfers.Report("Upload", message);
			return true;
		case kMsgBannerData:
			fBanner.Decode(message, fRequests.IsConnected());
			return true;
		case kMsgBannerFetched:
			fBanner.HandleFetched(message);
			return true;
		case kMsgBannerDecoded:
			fBanner.HandleDecoded();
			return true;
		default:
			return false;
	}
}


// #pragma mark - Windows


/*!	Brings the conversation with a user to the front, a new one if there is none. */
MessageWindow*
MainWindow::_FindOrCreatePM(uint16 socket, const char* nick)
{
	return fConversations.FindOrCreate(socket, nick, _CurrentConnection());
}


/*!	Who has no id is the server itself, and speaks in the chat, as do those whose message would open
	one window too many.
*/
void
MainWindow::_HandleMessageReceived(const BMessage* message)
{
	if (message->GetUInt16("socket", 0) == 0)
		fChat.ShowServerMessage(message);
	else if (!fConversations.Receive(message, _CurrentConnection()))
		fChat.ShowPrivateMessage(message);
}


void
MainWindow::_HandleOpenMessages(const BMessage* message)
{
	const uint16 socket = message->GetUInt16("socket", 0);
	if (socket == 0)
		return;
	BWindow* window = _FindOrCreatePM(socket, message->GetString("nick", "???"));
	if (window->Lock()) {
		window->Activate(true);
		window->Unlock();
	}
}


/*!	\param path Of the folder on the server; \c NULL for the root. */
void
MainWindow::_OpenFileList(const char* path)
{
	fFolders.Open(path, _CurrentConnection());
	fRequests.ListFolder(path);
}


void
MainWindow::_RevealChat()
{
	fChatWindow->Minimize(false);
	fChatWindow->Activate(true);
}


void
MainWindow::_RevealUsers()
{
	fUserListWindow->Minimize(false);
	fUserListWindow->Activate(true);
}


/*!	For the list, joining and changing are the same. */
void
MainWindow::_HandleUserChanged(const BMessage* message)
{
	BMessage change(kMsgAddUser);
	change.AddUInt16("socket", message->GetUInt16("socket", 0));
	change.AddUInt16("icon", message->GetUInt16("icon", 0));
	change.AddUInt16("color", message->GetUInt16("color", 0));
	change.AddString("nick", message->GetString("nick", "???"));
	AddConnection(&change, _CurrentConnection());
	Deliver(fUserList, &change);
}


void
MainWindow::_HandleUserLeft(const BMessage* message)
{
	BMessage change(kMsgRemoveUser);
	change.AddUInt16("socket", message->GetUInt16("socket", 0));
	Deliver(fUserList, &change);
}


void
MainWindow::_UsersClear()
{
	BMessage clear(kMsgRemoveAll);
	Deliver(fUserList, &clear);
}
