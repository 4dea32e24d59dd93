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

#include "ConnectionAttempt.h"
#include "ConnectionMark.h"
#include "HotlineProtocol.h"
#include "SendQueue.h"
#include "TransactionBuilder.h"


static const uint16 kDefaultIcon = 128;
// In seconds, for each wait on the control connection.
static const int kSocketTimeout = 10;
static const char* const kDefaultNick = "HaikuUser";

// The number of the next client.
static std::atomic<uint32> sNextConnection(1);


/*!	Waits a second at most. In a burst there are bytes already: a look sees them for a quarter less
	than a wait, for which the system sets a clock and queues the thread.
	\return What select() does: more than 0 when there is something to read, 0 after the second, -1
	for an error.
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
	  fConnection(sNextConnection++),
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
		fSocket = SocketReference();
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
				kSocketTimeout);
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
		_Notify(&failed);
	}
}


/*!	Ends the connection without a notification and without waiting. A connect thread that is still
	under way carries on, only the destructor stops it.
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
		fSendQueue.reset();
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


/*!	The control connection's socket, not set when it is closed. It stays open for as long as the
	caller keeps it.
*/
SocketReference
HotlineClient::_Socket() const
{
	BAutolock locker(fStateLock);
	return fSocket;
}


std::shared_ptr<SendQueue>
HotlineClient::_SendQueue() const
{
	BAutolock locker(fStateLock);
	return fSendQueue;
}


/*!	Gives a request its id, records what a reply will need, and sends it; nothing is sent unless a
	session stands.
	Everybody's requests take their turn here, so that the login is the first transaction of its
	session and has the first id.
	\param builder Of the buffer that the request's header belongs to.
	\param pieces The request, that buffer first.
	\param task The kind of TaskList whose reply is waited for, with its \a path and \a extra; 0 for
	none.
	\return The id.
*/
uint32
HotlineClient::_SendRequest(uint32 type, TransactionBuilder& builder,
	const TransactionPieces& pieces, uint32 task, const char* path, const char* extra)
{
	BAutolock locker(fSendLock);
	const uint32 trans = _BuildHeader(builder.Header(), type, builder.DataLength(),
		builder.CountParams());
	if (task != 0)
		fTasks.AddTask(trans, task, path, extra);
	const std::shared_ptr<SendQueue> queue = _SendQueue();
	if (queue != NULL)
		queue->Send(pieces);
	return trans;
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


/*!	Reads the server's transactions until the connection ends, by whomever. The socket is left to
	its owner.
*/
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


/*!	Waits a second at most for bytes, and reads no more of them than the current stage of the parser
	needs.
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


/*!	Posts a copy, marked as this client's, to the target. May wait for room in the target's queue.
*/
void
HotlineClient::_Notify(BMessage* msg)
{
	if (fTarget == NULL || fClosing)
		return;
	AddConnection(msg, fConnection);
	fTarget->PostMessage(msg);
}
