/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "HotlineClient.h"

#include <utility>

#include <Autolock.h>
#include <Looper.h>
#include <Message.h>

#include "ConnectionAttempt.h"
#include "ConnectionMark.h"
#include "Delivery.h"
#include "HotlineProtocol.h"


static const uint16 kDefaultIcon = 128;
// In seconds, for each wait on the control connection.
static const int kSocketTimeout = 10;
static const char* const kDefaultNick = "HaikuUser";

// The number of the next client.
static std::atomic<uint32> sNextConnection(1);


static void
wait_for(thread_id thread)
{
	status_t result;
	if (thread >= 0)
		wait_for_thread(thread, &result);
}


/*!	\param target Where notifications are posted, not owned; NULL drops them. */
HotlineClient::HotlineClient(BLooper* target)
	: fTarget(target),
	  fMessenger(fTarget),
	  fConnection(sNextConnection++),
	  fStateLock("hotline state"),
	  fConnectPort(kDefaultPort),
	  fConnIcon(kDefaultIcon),
	  fRecvThread(-1),
	  fConnectThread(-1),
	  fConnected(false),
	  fRunning(false),
	  fClosing(false),
	  fPort(0),
	  fLoginTrans(0)
{
}


/*!	Ends the connection, or the attempt at one, and waits for the threads, all of which are woken
	up.
*/
HotlineClient::~HotlineClient()
{
	std::vector<thread_id> connectThreads;
	std::shared_ptr<ConnectionAttempt> attempt;
	{
		BAutolock locker(fStateLock);
		fClosing = true;
		fRunning = false;
		fConnected = false;
		fSocket.ShutDown();
		fSocket = Socket();
		attempt = fAttempt;
		connectThreads = fReplacedThreads;
		connectThreads.push_back(fConnectThread);
	}

	if (attempt != NULL)
		attempt->Cancel();
	for (const thread_id thread : connectThreads)
		wait_for(thread);
	wait_for(fRecvThread);
}


/*!	Starts a thread that connects and logs in; its outcome is posted. An attempt that is still under
	way is given up for this one without a word, a connection that stands is replaced as soon as the
	new one does.
	\param port In host order.
	\param login NULL, like \a password, for none.
	\param nick NULL for "HaikuUser".
*/
void
HotlineClient::Connect(const char* address, uint16 port, const char* login, const char* password,
	const char* nick, uint16 icon)
{
	bool started = false;
	std::shared_ptr<ConnectionAttempt> replaced;
	{
		BAutolock locker(fStateLock);
		const thread_id thread = spawn_thread(_ConnectThreadEntry, "HL:Connect", B_NORMAL_PRIORITY,
			this);
		if (thread >= 0) {
			fConnectAddress = address != NULL ? address : "";
			fConnectPort = port;
			fConnLogin = login != NULL ? login : "";
			fConnPassword = password != NULL ? password : "";
			fConnNick = nick != NULL ? nick : kDefaultNick;
			fConnIcon = icon;
			if (fConnectThread >= 0)
				fReplacedThreads.push_back(fConnectThread);
			replaced = fAttempt;
			fAttempt = std::make_shared<ConnectionAttempt>(fConnectAddress.String(), port,
				ConnectionOptions{kSocketTimeout, kSocketTimeout, Socket::kFailAtSignals, true});
			fConnectThread = thread;
			started = resume_thread(thread) == B_OK;
			if (!started)
				fConnectThread = -1;
		}
	}

	if (replaced != NULL)
		replaced->Cancel();
	if (!started) {
		BMessage failed(kHLConnectFailed);
		failed.AddString("error", "Could not create connect thread");
		AddConnection(&failed, fConnection);
		// Nobody makes room in the target's queue while its own thread waits for that.
		Deliver(fMessenger, &failed);
	}
}


/*!	Ends the connection without a notification and without waiting. A connect thread that is still
	under way carries on, only the destructor stops it.
*/
void
HotlineClient::Disconnect()
{
	Socket socket;
	{
		BAutolock locker(fStateLock);
		fRunning = false;
		fConnected = false;
		fSocket.ShutDown();
		std::swap(socket, fSocket);
	}
	fRequests.Close(socket);
	fRequests.ForgetTasks();
}


const char*
HotlineClient::ServerName() const
{
	BAutolock locker(fStateLock);
	fShownServerName = fServerInfo.name;
	return fShownServerName.String();
}


uint16
HotlineClient::ServerVersion() const
{
	BAutolock locker(fStateLock);
	return fServerInfo.version;
}


const char*
HotlineClient::Address() const
{
	BAutolock locker(fStateLock);
	fShownAddress = fAddress;
	return fShownAddress.String();
}


/*!	The control connection's socket, not set when it is closed. It stays open for as long as the
	caller keeps it.
*/
Socket
HotlineClient::_CurrentSocket() const
{
	BAutolock locker(fStateLock);
	return fSocket;
}


// #pragma mark - Notifications


void
HotlineClient::_Notify(uint32 what)
{
	BMessage message(what);
	_Notify(&message);
}


/*!	Posts a copy, marked as this client's, to the target. Waits for room in the target's queue, on a
	thread of the client's.
*/
void
HotlineClient::_Notify(BMessage* msg)
{
	if (fTarget == NULL || fClosing)
		return;
	AddConnection(msg, fConnection);
	bool isDelivered = false;
	while (!isDelivered && !fClosing)
		isDelivered = Deliver(fMessenger, msg);
}


/*!	Posts it with where the transfer is to be had: the control connection's address and port. */
void
HotlineClient::_NotifyTransfer(BMessage* message)
{
	{
		BAutolock locker(fStateLock);
		message->AddString("address", fAddress);
		message->AddUInt16("port", fPort);
	}
	_Notify(message);
}
