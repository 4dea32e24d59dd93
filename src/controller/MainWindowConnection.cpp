/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Button.h>
#include <Message.h>
#include <OS.h>
#include <StringView.h>

#include "AgreementWindow.h"
#include "AppMessages.h"
#include "ChatColors.h"
#include "ConnectionMark.h"
#include "ConnectWindow.h"
#include "HotlineClient.h"
#include "HotlineProtocol.h"
#include "MainWindow.h"
#include "UserListWindow.h"


static const bigtime_t kCleanupDelay = 200000;


/*!	Entry of "HL:Cleanup": deletes a client that has been disconnected.
	Deleting waits for the client's threads, which no window should do.
	\param data The client, owned by this thread.
*/
static status_t
delete_client(void* data)
{
	const std::unique_ptr<HotlineClient> client(static_cast<HotlineClient*>(data));
	snooze(kCleanupDelay);
	return B_OK;
}


// #pragma mark - The connection's events


void
MainWindow::_HandleConnected()
{
	_ChatAppend("*** Connected — logging in ***\n", kSuccessColor);
	fStatusView->SetText("Connected — logging in…");
}


/*!	The client stays until the next attempt replaces it. */
void
MainWindow::_HandleConnectFailed(const BMessage* message)
{
	BString line;
	line.SetToFormat("*** Connection failed: %s ***\n",
		message->GetString("error", "Unknown error"));
	_ChatAppend(line.String(), kFailureColor);
	fConnectBtn->SetEnabled(true);
	fDisconnectBtn->SetEnabled(false);
	_ChatEnable(false);
	fStatusView->SetText("Connection failed");
}


/*!	Asks for the users although the client did already: who came in between is not missed. */
void
MainWindow::_HandleLoggedIn()
{
	_EnableButtons(true);
	_ChatEnable(true);
	_RevealChat();
	_RevealUsers();
	if (fClient != NULL)
		fClient->RequestUserList();
	_ChatAppend("*** Logged in ***\n", kSuccessColor);
	_SetStatusToServer(fClient != NULL ? fClient->ServerName() : "");
}


/*!	Unlike a disconnect this leaves the client and the title as they are. */
void
MainWindow::_HandleConnectionLost()
{
	_ChatAppend("\n*** Connection lost ***\n", kFailureColor);
	_ChatEnable(false);
	_UsersClear();
	_EnableButtons(false);
	fStatusView->SetText("Disconnected");
	_ClearBanner();
}


void
MainWindow::_HandleServerInfo(const BMessage* message)
{
	const char* name = message->GetString("serverName", "");
	if (name[0] == '\0')
		return;

	BString text;
	text.SetToFormat("*** Server: %s (v%u) ***\n", name,
		static_cast<unsigned int>(message->GetUInt16("version", 0)));
	_ChatAppend(text.String(), kServerColor);
	_SetStatusToServer(name);
	text.SetToFormat("%s — %s", kTitle, name);
	SetTitle(text.String());
}


void
MainWindow::_HandleChatReceived(const BMessage* message)
{
	BString line(message->GetString("text", ""));
	line << "\n";
	_ChatAppend(line.String(), kChatColor);
}


void
MainWindow::_HandleBroadcast(const BMessage* message)
{
	BString line;
	line.SetToFormat("\n*** Broadcast: %s ***\n", message->GetString("text", ""));
	_ChatAppend(line.String(), kBroadcastColor);
}


void
MainWindow::_HandleTaskError(const BMessage* message)
{
	BString line;
	line.SetToFormat("*** Error: %s ***\n", message->GetString("error", "Unknown error"));
	_ChatAppend(line.String(), kFailureColor);
}


void
MainWindow::_HandlePoliteQuit()
{
	_ChatAppend("\n*** Server requested disconnect ***\n", kFailureColor);
	_Disconnect();
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
	fUserListWindow->PostMessage(&change);
}


void
MainWindow::_HandleUserLeft(const BMessage* message)
{
	BMessage change(kMsgRemoveUser);
	change.AddUInt16("socket", message->GetUInt16("socket", 0));
	fUserListWindow->PostMessage(&change);
}


void
MainWindow::_HandleAgreement(const BMessage* message)
{
	BWindow* window = new AgreementWindow(BRect(150, 150, 600, 500), this,
		message->GetString("text"), _CurrentConnection());
	window->Show();
}


// #pragma mark - Commands and requests


void
MainWindow::_HandleToolConnect()
{
	BWindow* window = new ConnectWindow(BRect(200, 200, 550, 420), this);
	window->Show();
}


void
MainWindow::_HandleToolDisconnect()
{
	_Disconnect();
	_ChatAppend("\n*** Disconnected ***\n", kDisconnectColor);
}


void
MainWindow::_HandleToolUsers()
{
	_RevealUsers();
	if (_IsConnected())
		fClient->RequestUserList();
}


void
MainWindow::_HandleSendChat(const BMessage* message)
{
	const char* text = message->GetString("text", "");
	if (_IsConnected() && text[0] != '\0')
		fClient->SendChat(text);
}


void
MainWindow::_HandleAcceptAgreement()
{
	_ChatAppend("*** Agreement accepted ***\n", kSuccessColor);
	if (_IsConnected())
		fClient->SendAgreed(fNickname.String(), fIconID);
}


void
MainWindow::_HandleDeclineAgreement()
{
	_ChatAppend("*** Agreement declined — disconnecting ***\n", kFailureColor);
	_Disconnect();
}


// #pragma mark - Connecting and disconnecting


/*!	Starts a connection in place of any earlier one. The outcome arrives as a message.
	\param message A kMsgConnectServer.
*/
void
MainWindow::_Connect(const BMessage* message)
{
	const char* address = message->GetString("address", "");
	const uint16 port = static_cast<uint16>(message->GetInt16("port", kDefaultPort));

	_Disconnect();
	fClient.reset(new HotlineClient(this));

	const unsigned int shownPort = port;
	BString text;
	text.SetToFormat("Connecting to %s:%u…", address, shownPort);
	fStatusView->SetText(text.String());
	text.SetToFormat("*** Connecting to %s:%u ***\n", address, shownPort);
	_ChatAppend(text.String(), kRequestColor);
	_RevealChat();

	BString nick(fNickname);
	if (nick.IsEmpty())
		nick = kDefaultNickname;
	fClient->Connect(address, port, message->GetString("login", ""),
		message->GetString("password", ""), nick.String(), fIconID);
}


/*!	Ends the connection and shows that there is none, also when there was none. */
void
MainWindow::_Disconnect()
{
	_ReleaseClient();
	_EnableButtons(false);
	_ChatEnable(false);
	_UsersClear();
	_ClearBanner();
	_CloseWindows(fFileWindows);
	_CloseWindows(fMsgWindows);
	SetTitle(kTitle);
	fStatusView->SetText("Not connected");
}


/*!	Asks every window of a list to quit and forgets them; what they post when they do finds nothing.
*/
void
MainWindow::_CloseWindows(BList& windows)
{
	for (int32 i = windows.CountItems() - 1; i >= 0; i--)
		static_cast<BWindow*>(windows.ItemAt(i))->PostMessage(B_QUIT_REQUESTED);
	windows.MakeEmpty();
}


/*!	Disconnects the client and leaves its end to a thread. */
void
MainWindow::_ReleaseClient()
{
	if (fClient == NULL)
		return;

	fClient->Disconnect();
	const thread_id cleanup = spawn_thread(delete_client, "HL:Cleanup", B_LOW_PRIORITY,
		fClient.get());
	if (cleanup < 0) {
		fClient.reset();
		return;
	}

	// The client is the thread's from here on.
	static_cast<void>(fClient.release());
	resume_thread(cleanup);
}


bool
MainWindow::_IsConnected() const
{
	return fClient != NULL && fClient->IsConnected();
}


/*!	\return The number of the current connection, or attempt at one; 0 when there is none. */
uint32
MainWindow::_CurrentConnection() const
{
	return fClient != NULL ? fClient->Connection() : 0;
}
