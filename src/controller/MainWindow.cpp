/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "MainWindow.h"

#include <Application.h>
#include <Button.h>
#include <Directory.h>
#include <Entry.h>
#include <Message.h>
#include <Path.h>
#include <Roster.h>
#include <StringView.h>

#include "AppMessages.h"
#include "BannerView.h"
#include "ChatWindow.h"
#include "ConnectionMark.h"
#include "HotlineClient.h"
#include "UserListWindow.h"


static const uint16 kDefaultIcon = 137;
static const char* const kDefaultTracker = "hltracker.com";
static const int32 kWindowBlockSize = 20;

const char* const MainWindow::kTitle = "Palimbra";
const char* const MainWindow::kDefaultNickname = "HaikuUser";


/*!	Quits a window that may be gone already. */
static void
quit_window(BWindow* window)
{
	if (window->Lock())
		window->Quit();
}


MainWindow::MainWindow()
	: BWindow(BRect(100, 60, 700, 140), kTitle, B_TITLED_WINDOW,
		B_NOT_ZOOMABLE | B_AUTO_UPDATE_SIZE_LIMITS),
	  fChatWindow(NULL),
	  fUserListWindow(NULL),
	  fFileWindows(kWindowBlockSize),
	  fMsgWindows(kWindowBlockSize),
	  fMenuBar(NULL),
	  fConnectBtn(NULL),
	  fDisconnectBtn(NULL),
	  fChatBtn(NULL),
	  fUsersBtn(NULL),
	  fFilesBtn(NULL),
	  fTrackerBtn(NULL),
	  fOptionsBtn(NULL),
	  fStatusView(NULL),
	  fBannerView(NULL),
	  fNickname(kDefaultNickname),
	  fIconID(kDefaultIcon),
	  fTrackerAddress(kDefaultTracker)
{
	_FindFolders();
	_InitMenu();
	_InitToolbar();
	_EnableButtons(false);

	// Both start out of sight and are only ever revealed.
	fChatWindow = new ChatWindow(BRect(100, 180, 650, 550), this);
	fChatWindow->Show();
	fChatWindow->Minimize(true);
	fUserListWindow = new UserListWindow(BRect(660, 180, 880, 550), this);
	fUserListWindow->Show();
	fUserListWindow->Minimize(true);
}


MainWindow::~MainWindow()
{
	fClient.reset();

	// They refuse to quit when they are asked to.
	quit_window(fChatWindow);
	quit_window(fUserListWindow);
	for (BList* windows : {&fFileWindows, &fMsgWindows}) {
		for (int32 i = windows->CountItems() - 1; i >= 0; i--)
			quit_window(static_cast<BWindow*>(windows->ItemAt(i)));
	}
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
			_HandleChatReceived(message);
			return true;
		case kHLBroadcast:
			_HandleBroadcast(message);
			return true;
		case kHLTaskError:
			_HandleTaskError(message);
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
			_HandleAgreement(message);
			return true;
		case kHLMsgReceived:
			_HandleMessageReceived(message);
			return true;
		case kHLFileListReceived:
			_HandleFileList(message);
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
			_HandleToolConnect();
			return true;
		case kMsgToolDisconnect:
			_HandleToolDisconnect();
			return true;
		case kMsgToolChat:
			_RevealChat();
			return true;
		case kMsgToolUsers:
			_HandleToolUsers();
			return true;
		case kMsgToolFiles:
			_OpenFileList(NULL);
			return true;
		case kMsgToolTracker:
			_HandleToolTracker();
			return true;
		case kMsgToolOptions:
			_HandleToolOptions();
			return true;
		case kMsgToolAbout:
			_HandleToolAbout();
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
			_HandleSendChat(message);
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
			_HandleSendMessage(message);
			return true;
		case kMsgPMWinClosed:
			_HandleMessageWindowClosed(message);
			return true;
		case kMsgOpenFolder:
			_HandleOpenFolder(message);
			return true;
		case kMsgFileWinClosed:
			_HandleFileWindowClosed(message);
			return true;
		case kMsgDownloadFile:
			_HandleDownloadFile(message);
			return true;
		case kMsgUploadFile:
			_HandleUploadFile(message);
			return true;
		case kMsgOptionsSave:
			_HandleOptionsSave(message);
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
			_HandleDownloadReady(message);
			return true;
		case kHLUploadReady:
			_HandleUploadReady(message);
			return true;
		case kHLBannerReady:
			_HandleBannerReady(message);
			return true;
		case kMsgDownloadDone:
			_ReportTransfer("Download", message);
			return true;
		case kMsgUploadDone:
			_ReportTransfer("Upload", message);
			return true;
		case kMsgBannerData:
			_HandleBannerData(message);
			return true;
		default:
			return false;
	}
}


// #pragma mark - What the user sees


void
MainWindow::_ChatAppend(const char* text, rgb_color color)
{
	const uint32 packed = static_cast<uint32>(color.red) << 24
		| static_cast<uint32>(color.green) << 16 | static_cast<uint32>(color.blue) << 8
		| color.alpha;
	BMessage message(kMsgAppendChat);
	message.AddString("text", text);
	message.AddInt32("color", static_cast<int32>(packed));
	fChatWindow->PostMessage(&message);
}


void
MainWindow::_ChatEnable(bool enabled)
{
	BMessage message(kMsgEnableChat);
	message.AddBool("enabled", enabled);
	AddConnection(&message, _CurrentConnection());
	fChatWindow->PostMessage(&message);
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


void
MainWindow::_UsersClear()
{
	fUserListWindow->PostMessage(kMsgRemoveAll);
}


void
MainWindow::_ClearBanner()
{
	fBannerView->SetBitmap(NULL);
	fBannerView->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, 0));
	InvalidateLayout();
}


/*!	The buttons that follow the connection. The others and the menu items are always enabled. */
void
MainWindow::_EnableButtons(bool loggedIn)
{
	fConnectBtn->SetEnabled(!loggedIn);
	fDisconnectBtn->SetEnabled(loggedIn);
	fChatBtn->SetEnabled(loggedIn);
	fUsersBtn->SetEnabled(loggedIn);
	fFilesBtn->SetEnabled(loggedIn);
}


/*!	\param name The server's name, empty if it has not told one. */
void
MainWindow::_SetStatusToServer(const char* name)
{
	BString text("Connected");
	if (name[0] != '\0')
		text << " to " << name;
	fStatusView->SetText(text.String());
}


/*!	Finds the program's own folder, and beside the program the pictures and the downloads. */
void
MainWindow::_FindFolders()
{
	app_info info;
	if (be_app->GetAppInfo(&info) != B_OK)
		return;

	BPath root(&info.ref);
	if (root.GetParent(&root) != B_OK)
		return;
	fAppRootPath = root.Path();
	fAssetsPath = BPath(root.Path(), "assets").Path();
	fDownloadsPath = BPath(root.Path(), "Downloads").Path();

	// An error means that the folder exists already, or that the program may not write here.
	BDirectory().CreateDirectory(fDownloadsPath.String(), NULL);
}
