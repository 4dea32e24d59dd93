/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "MainWindow.h"

#include <utility>

#include <Message.h>
#include <OS.h>
#include <String.h>

#include "ChatColors.h"
#include "HotlineClient.h"
#include "HotlineProtocol.h"


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


/*!	Disconnects a client and leaves its end to a thread. */
static void
release_client(std::unique_ptr<HotlineClient> client)
{
	client->Disconnect();
	const thread_id cleanup = spawn_thread(delete_client, "HL:Cleanup", B_LOW_PRIORITY,
		client.get());
	if (cleanup < 0)
		return;

	// The client is the thread's from here on.
	static_cast<void>(client.release());
	resume_thread(cleanup);
}


// #pragma mark - The connection's events


void
MainWindow::_HandleConnected()
{
	_ChatAppend("*** Connected — logging in ***\n", kSuccessColor);
	fBar.ShowLoggingIn();
}


/*!	The client stays until the next attempt replaces it. */
void
MainWindow::_HandleConnectFailed(const BMessage* message)
{
	fChat.Announce("Connection failed", message->GetString("error", "Unknown error"),
		kFailureColor);
	fBar.ShowFailed();
	_ChatEnable(false);
}


/*!	Asks for the users although the client did already: who came in between is not missed. */
void
MainWindow::_HandleLoggedIn()
{
	_ChatEnable(true);
	_RevealChat();
	_RevealUsers();
	if (fClient != NULL)
		fClient->RequestUserList();
	_ChatAppend("*** Logged in ***\n", kSuccessColor);
	fBar.ShowLoggedIn(fClient != NULL ? fClient->ServerName() : "");
}


/*!	Unlike a disconnect this leaves the client and the title as they are. */
void
MainWindow::_HandleConnectionLost()
{
	_ChatAppend("\n*** Connection lost ***\n", kFailureColor);
	_ChatEnable(false);
	_UsersClear();
	fBar.ShowLost();
	fBanner.Clear();
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
	fBar.ShowServer(name);
	text.SetToFormat("%s — %s", kTitle, name);
	SetTitle(text.String());
}


void
MainWindow::_HandlePoliteQuit()
{
	_ChatAppend("\n*** Server requested disconnect ***\n", kFailureColor);
	_Disconnect();
}


/*!	What the server says cannot be shown any more; a line that tells so still finds room. */
void
MainWindow::_HandleTextFull()
{
	if (fClient == NULL)
		return;
	_Disconnect();
	fBar.ShowOutOfMemory();
	_ChatAppend("\n*** Disconnected: out of memory ***\n", kFailureColor);
}


// #pragma mark - What the user decides


void
MainWindow::_HandleToolDisconnect()
{
	_Disconnect();
	_ChatAppend("\n*** Disconnected ***\n", kDisconnectColor);
}


void
MainWindow::_HandleAcceptAgreement()
{
	_ChatAppend("*** Agreement accepted ***\n", kSuccessColor);
	fRequests.Agree(fSettings);
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

	fBar.ShowConnecting(address, port);
	BString text;
	text.SetToFormat("*** Connecting to %s:%u ***\n", address, static_cast<unsigned int>(port));
	_ChatAppend(text.String(), kRequestColor);
	_RevealChat();

	fClient->Connect(address, port, message->GetString("login", ""),
		message->GetString("password", ""), fSettings.LoginNickname(), fSettings.IconID());
}


/*!	Ends the connection and shows that there is none, also when there was none. */
void
MainWindow::_Disconnect()
{
	if (fClient != NULL)
		release_client(std::move(fClient));
	fBar.ShowNotConnected();
	_ChatEnable(false);
	_UsersClear();
	fBanner.Clear();
	fFolders.CloseAll();
	fConversations.CloseAll();
	SetTitle(kTitle);
}


/*!	\return The number of the current connection, or attempt at one; 0 when there is none. */
uint32
MainWindow::_CurrentConnection() const
{
	return fClient != NULL ? fClient->Connection() : 0;
}
