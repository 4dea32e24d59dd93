/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "HotlineClient.h"

#include <cerrno>
#include <sys/select.h>
#include <sys/socket.h>

#include <Autolock.h>
#include <Looper.h>
#include <Message.h>

#include "HotlineProtocol.h"
#include "TransactionBuilder.h"


static const uint16 kDefaultIcon = 128;
static const char* const kDefaultNick = "HaikuUser";

// How often, and how far apart, a call that opens a socket is told to end.
static const int32 kStopAttempts = 20;
static const bigtime_t kStopInterval = 5000;


/*!	A transaction on its way, and how far it has come. */
struct HotlineClient::Sending {
	bool Proceed(ssize_t (SocketReference::*send)(const void*, size_t) const);

	HotlineClient* client;
	const TransactionPieces* pieces;
	// Set when its turn has come.
	SocketReference socket;
	int32 piece;
	size_t offset;
};


/*!	\param send What each piece is sent with.
	\return \c false when that took less than a whole piece. \c true when nothing is left to do, because of a failure or not.
*/
bool
HotlineClient::Sending::Proceed(ssize_t (SocketReference::*send)(const void*, size_t) const)
{
	for (; piece < pieces->CountPieces(); piece++) {
		const uint8* data = static_cast<const uint8*>(pieces->DataAt(piece)) + offset;
		const size_t size = pieces->SizeAt(piece) - offset;
		const ssize_t sent = (socket.*send)(data, size);
		if (sent < 0)
			return true;
		if (static_cast<size_t>(sent) < size) {
			offset += static_cast<size_t>(sent);
			return false;
		}
		offset = 0;
	}
	return true;
}


/*!	Waits a second at most. In a burst there are bytes already: a look sees them for a quarter less than a wait, for which the
	system sets a clock and queues the thread.
	\return What select() does: more than 0 when there is something to read, 0 after the second, -1 for an error.
*/
static int
wait_until_readable(int socket)
{
	static const timeval kLook = {0, 0};
	static const timeval kWait = {1, 0};
	int ready = 0;
	for (const timeval* time : {&kLook, &kWait}) {
		fd_set readable;
		FD_ZERO(&readable);
		FD_SET(socket, &readable);
		timeval timeout = *time;
		ready = select(socket + 1, &readable, NULL, NULL, &timeout);
		if (ready != 0)
			break;
	}
	return ready;
}


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
	  fSendLock("hotline send"),
	  fStateLock("hotline state"),
	  fConnectPort(kDefaultPort),
	  fConnIcon(kDefaultIcon),
	  fRecvThread(-1),
	  fConnectThread(-1),
	  fConnected(false),
	  fRunning(false),
	  fClosing(false),
	  fTransID(1),
	  fServerVersion(0),
	  fPort(0),
	  fLoginTrans(0)
{
}


/*!	Ends the connection, or the attempt at one, and waits for the threads: a name that is just being resolved for as long
	as that takes, everything else is woken up.
*/
HotlineClient::~HotlineClient()
{
	std::vector<thread_id> connectThreads;
	{
		BAutolock locker(fStateLock);
		fClosing = true;
		fRunning = false;
		fConnected = false;
		fSocket.ShutDown();
		fSocket = SocketReference();
		connectThreads = fReplacedThreads;
		connectThreads.push_back(fConnectThread);
	}

	_StopOpening();
	for (const thread_id thread : connectThreads)
		wait_for(thread);
	wait_for(fRecvThread);
}


/*!	Makes the connect thread leave the call that opens its socket. A thread that is only just on its way into that call does
	not notice, so it is told more than once.
*/
void
HotlineClient::_StopOpening() const
{
	for (int32 i = 0; i < kStopAttempts; i++) {
		{
			BAutolock locker(fStateLock);
			if (!fOpeningSocket.IsSet())
				return;
			fOpeningSocket.ShutDown();
		}
		snooze(kStopInterval);
	}
}


/*!	Starts a thread that connects and logs in; its outcome is posted. An attempt that is still under way is given up for
	this one without a word, a connection that stands is replaced as soon as the new one does.
	\param port In host order.
	\param login NULL, like \a password, for none.
	\param nick NULL for "HaikuUser".
*/
void
HotlineClient::Connect(const char* address, uint16 port, const char* login, const char* password,
	const char* nick, uint16 icon)
{
	bool started = false;
	{
		BAutolock locker(fStateLock);
		fConnectAddress = address != NULL ? address : "";
		fConnectPort = port;
		fConnLogin = login != NULL ? login : "";
		fConnPassword = password != NULL ? password : "";
		fConnNick = nick != NULL ? nick : kDefaultNick;
		fConnIcon = icon;

		const thread_id thread = spawn_thread(_ConnectThreadEntry, "HL:Connect", B_NORMAL_PRIORITY,
			this);
		if (thread >= 0) {
			if (fConnectThread >= 0)
				fReplacedThreads.push_back(fConnectThread);
			fOpeningSocket.ShutDown();
			fConnectThread = thread;
			started = resume_thread(thread) == B_OK;
			if (!started)
				fConnectThread = -1;
		}
	}

	if (!started) {
		BMessage failed(kHLConnectFailed);
		failed.AddString("error", "Could not create connect thread");
		_Notify(&failed);
	}
}


/*!	Ends the connection without a notification and without waiting. A connect thread that is still under way carries on,
	only the destructor stops it.
*/
void
HotlineClient::Disconnect()
{
	{
		BAutolock locker(fStateLock);
		fRunning = false;
		fConnected = false;
		fSocket.ShutDown();
		fSocket = SocketReference();
	}
	fTasks.MakeEmpty();
}


const char*
HotlineClient::ServerName() const
{
	BAutolock locker(fStateLock);
	fShownServerName = fServerName;
	return fShownServerName.String();
}


const char*
HotlineClient::Address() const
{
	BAutolock locker(fStateLock);
	fShownAddress = fAddress;
	return fShownAddress.String();
}


// #pragma mark - Moving bytes


/*!	The control connection's socket, not set when it is closed. It stays open for as long as the caller keeps it. */
SocketReference
HotlineClient::_Socket() const
{
	BAutolock locker(fStateLock);
	return fSocket;
}


/*!	Sends a transaction: all its pieces to one connection, with nothing of another thread's between them, up to the first
	one that fails. A broken connection shows up in the receive loop.
	A server that does not read keeps the caller waiting, for the socket's time-out at most. That is done by
	wait_for_thread(), which leaves all windows but the caller's to themselves meanwhile.
*/
void
HotlineClient::_SendTransaction(const TransactionPieces& pieces)
{
	Sending sending = {this, &pieces, SocketReference(), 0, 0};
	if (fSendLock.LockWithTimeout(0) != B_OK) {
		_SendInThread(&sending);
		return;
	}

	sending.socket = _Socket();
	if (!sending.Proceed(&SocketReference::SendAtOnce))
		_SendInThread(&sending);
	fSendLock.Unlock();
}


/*!	Sends the rest, which takes its time, and waits until that is done. */
void
HotlineClient::_SendInThread(Sending* sending)
{
	const thread_id thread = spawn_thread(_SendThreadEntry, "HL:Send", B_NORMAL_PRIORITY, sending);
	if (thread >= 0 && resume_thread(thread) == B_OK)
		wait_for(thread);
	else
		_SendThreadEntry(sending);
}


status_t
HotlineClient::_SendThreadEntry(void* data)
{
	Sending* sending = static_cast<Sending*>(data);
	if (sending->socket.IsSet()) {
		// Whoever waits for this thread holds the lock.
		sending->Proceed(&SocketReference::SendFully);
		return B_OK;
	}

	BAutolock locker(sending->client->fSendLock);
	sending->socket = sending->client->_Socket();
	sending->Proceed(&SocketReference::SendFully);
	return B_OK;
}


/*!	Writes the header of a request and gives it the next id.
	\param buf Receives \c kHeaderSize bytes.
	\param totalDataLen 2, and for each parameter 4 and the length of its value.
	\return The id.
*/
uint32
HotlineClient::_BuildHeader(uint8* buf, uint32 type, uint32 totalDataLen, uint16 paramCount)
{
	HotlineHeader header;
	header.type = type;
	header.trans = fTransID++;
	header.flags = 0;
	header.totalSize = totalDataLen;
	header.dataSize = totalDataLen;
	header.paramCount = paramCount;
	HotlineWriteHeader(buf, header);
	return header.trans;
}


// #pragma mark - Receiving


status_t
HotlineClient::_ReceiveThreadEntry(void* data)
{
	return static_cast<HotlineClient*>(data)->_ReceiveLoop();
}


/*!	Reads the server's transactions until the connection ends, by whomever. The socket is left to its owner. */
status_t
HotlineClient::_ReceiveLoop()
{
	const SocketReference socket = _Socket();
	bool isOpen = socket.IsSet() && fParser.Reset();
	while (fRunning && isOpen)
		isOpen = _ReceiveSome(socket);

	fConnected = false;
	if (fRunning)
		_Notify(kHLDisconnected);
	fRunning = false;
	// The owner may delete the client from here on.
	fRecvThread = -1;
	return B_OK;
}


/*!	Waits a second at most for bytes, and reads no more of them than the current stage of the parser needs.
	\return \c false when the connection has ended.
*/
bool
HotlineClient::_ReceiveSome(const SocketReference& socket)
{
	const int ready = wait_until_readable(socket.Number());
	if (ready < 0)
		return errno == EINTR;
	if (ready == 0)
		return true;

	const ssize_t received = recv(socket.Number(), fParser.Room(), fParser.BytesNeeded(), 0);
	if (received < 1)
		return false;

	switch (fParser.Advance(static_cast<uint32>(received))) {
		case TransactionParser::kNeedsMore:
			return true;
		case TransactionParser::kComplete:
			_ProcessPayload();
			return fParser.Reset();
		case TransactionParser::kFailed:
			break;
	}
	socket.ShutDown();
	return false;
}


void
HotlineClient::_ProcessPayload()
{
	switch (fParser.State()) {
		case TransactionParser::kStateChat:
			_HandleChat();
			break;
		case TransactionParser::kStateMessage:
			_HandleMessage();
			break;
		case TransactionParser::kStateUserChange:
			_HandleUserChange();
			break;
		case TransactionParser::kStateUserLeave:
			_HandleUserLeave();
			break;
		case TransactionParser::kStateTask:
			_HandleTask();
			break;
		case TransactionParser::kStateAgreement:
			_HandleAgreement();
			break;
		case TransactionParser::kStatePoliteQuit:
			_HandlePoliteQuit();
			break;
		case TransactionParser::kStateBroadcast:
			_HandleBroadcast();
			break;
		case TransactionParser::kStateServerBanner:
			_HandleServerBanner();
			break;
	}
}


// #pragma mark - Notifications


void
HotlineClient::_Notify(uint32 what)
{
	BMessage message(what);
	_Notify(&message);
}


/*!	Posts a copy to the target, which may wait for room in the target's queue. */
void
HotlineClient::_Notify(BMessage* msg)
{
	if (fTarget != NULL && !fClosing)
		fTarget->PostMessage(msg);
}
