/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "HotlineClient.h"

#include <cstring>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <utility>

#include <Autolock.h>
#include <Message.h>

#include "ConnectionAttempt.h"
#include "HotlineProtocol.h"
#include "TransactionBuilder.h"


// What failed in an attempt that was given up: nothing that anybody is told.
static const char* const kGivenUp = "";


/*!	Adds a text that is not empty, cut between characters when it does not fit.
	\param room The most bytes it may have.
	\param encoded Whether it is a credential, which goes out encoded.
	\return How many it has.
*/
static size_t
add_login_text(TransactionBuilder& builder, uint16 field, const BString& text, size_t room,
	bool encoded)
{
	const size_t length = HotlineCutText(text.String(), static_cast<size_t>(text.Length()), room);
	if (length == 0)
		return 0;

	uint8 value[TransactionBuilder::kCapacity];
	memcpy(value, text.String(), length);
	if (encoded)
		HotlineEncodeCredential(value, static_cast<uint32>(length));
	builder.BuildParam(field, value, static_cast<uint16>(length));
	return length;
}


status_t
HotlineClient::_ConnectThreadEntry(void* data)
{
	return static_cast<HotlineClient*>(data)->_ConnectThread();
}


/*!	Connects, shakes hands, logs in and starts the receive thread.
	\return \c B_ERROR when it failed; then that has been posted.
*/
status_t
HotlineClient::_ConnectThread()
{
	const thread_id self = find_thread(NULL);
	Socket socket;
	const char* error = _OpenConnection(&socket);
	if (error == NULL)
		error = _Handshake(socket);

	if (error == NULL) {
		if (!_BeginSession(socket))
			_DropSocket(socket);
	} else {
		_DropSocket(socket);
		socket = Socket();
		if (error != kGivenUp && _MayProceed()) {
			BMessage failed(kHLConnectFailed);
			failed.AddString("error", error);
			_Notify(&failed);
		}
	}

	// A later attempt has put its own thread there. The owner may delete the client from here on.
	thread_id expected = self;
	fConnectThread.compare_exchange_strong(expected, -1);
	return error == NULL ? B_OK : B_ERROR;
}


/*!	Opens the connection and makes it the client's.
	\return What failed, or NULL.
*/
const char*
HotlineClient::_OpenConnection(Socket* _socket)
{
	std::shared_ptr<ConnectionAttempt> attempt;
	{
		BAutolock locker(fStateLock);
		if (!_MayProceed())
			return kGivenUp;
		attempt = fAttempt;
	}

	switch (attempt->Run()) {
		case ConnectionAttempt::kNotResolved:
			return "Could not resolve address";
		case ConnectionAttempt::kNoSocket:
			return "Could not create socket";
		case ConnectionAttempt::kNotConnected:
			return "Could not connect to server";
		case ConnectionAttempt::kCanceled:
			return kGivenUp;
		case ConnectionAttempt::kConnected:
			break;
	}

	*_socket = attempt->ConnectedSocket();
	const int number = _socket->Number();
	// The receive loop could not wait for it.
	if (number >= FD_SETSIZE) {
		attempt->Close();
		return "Could not create socket";
	}
	// A request's later pieces do not wait until its first one has been acknowledged.
	const int noDelay = 1;
	setsockopt(number, IPPROTO_TCP, TCP_NODELAY, &noDelay, sizeof(noDelay));
	return _AdoptSocket(*_socket) ? NULL : kGivenUp;
}


/*!	\return What failed, or NULL. A handshake that Disconnect() ended has not failed but is given
	up.
*/
const char*
HotlineClient::_Handshake(const Socket& socket) const
{
	if (!_MayProceed())
		return kGivenUp;
	if (!socket.SendAll(kClientMagic, kClientMagicLen))
		return _CurrentSocket().IsSameAs(socket) ? "Failed to send handshake" : kGivenUp;

	uint8 reply[kServerMagicLen];
	if (!_MayProceed())
		return kGivenUp;
	if (socket.ReceiveAll(reply, sizeof(reply)) != static_cast<ssize_t>(sizeof(reply)))
		return _CurrentSocket().IsSameAs(socket) ? "Server did not respond to handshake" : kGivenUp;

	// The other four bytes are an error code, which no server that goes on means.
	if (memcmp(reply, kServerMagic, 4) != 0)
		return "Invalid server response";
	return NULL;
}


/*!	Makes an open socket the control connection. One that still stands ends without a word; its
	receive thread has ended when this returns.
*/
bool
HotlineClient::_AdoptSocket(const Socket& socket)
{
	thread_id receiver;
	Socket former = socket;
	{
		BAutolock locker(fStateLock);
		if (!_MayProceed())
			return false;
		fRunning = false;
		fConnected = false;
		fSocket.ShutDown();
		std::swap(fSocket, former);
		fAttempt.reset();
		receiver = fRecvThread;
	}
	fRequests.Close(former);

	status_t result;
	if (receiver >= 0)
		wait_for_thread(receiver, &result);
	return true;
}


/*!	Sends the login, tells the target and starts the receive thread. Ids begin again at 1, with the
	login, and what waited under earlier ones is forgotten.
	\return \c false when the client was disconnected meanwhile, or no thread could be had.
*/
bool
HotlineClient::_BeginSession(const Socket& socket)
{
	{
		// Until the login is on its way, nobody else gets an id or sends.
		BAutolock requestsLocker(fRequests.Locker());
		// A later Connect() may have others.
		Login login;
		{
			BAutolock locker(fStateLock);
			if (!_MayProceed() || !fSocket.IsSameAs(socket))
				return false;
			fConnected = true;
			fAddress = fConnectAddress;
			fPort = fConnectPort;
			fServerInfo = ServerInfo();
			login = {fConnLogin, fConnPassword, fConnNick, fConnIcon};
			// Together with the check: nobody else closes what was opened for a socket of before.
			fRequests.Open(socket);
		}
		_SendLogin(login);
	}
	_Notify(kHLConnected);

	bool lost = false;
	{
		BAutolock locker(fStateLock);
		if (!_MayProceed() || !fSocket.IsSameAs(socket))
			return false;
		lost = !_StartReceiving();
	}
	if (lost)
		_Notify(kHLDisconnected);
	return !lost;
}


/*!	Spawns the receive thread. The state lock is held. */
bool
HotlineClient::_StartReceiving()
{
	fRunning = true;
	const thread_id thread = spawn_thread(_ReceiveThreadEntry, "HL:Receive", B_NORMAL_PRIORITY,
		this);
	fRecvThread = thread;
	if (thread >= 0 && resume_thread(thread) == B_OK)
		return true;

	fRecvThread = -1;
	fRunning = false;
	fConnected = false;
	return false;
}


/*!	Lets go of a socket that came to nothing. */
void
HotlineClient::_DropSocket(const Socket& socket)
{
	if (!socket.IsSet())
		return;
	{
		BAutolock locker(fStateLock);
		if (!fSocket.IsSameAs(socket))
			return;
		fSocket = Socket();
		fConnected = false;
	}
	fRequests.Close(socket);
}


/*!	For the connect thread: whether it still is the one, and the client is not being deleted. */
bool
HotlineClient::_MayProceed() const
{
	return !fClosing && fConnectThread == find_thread(NULL);
}


/*!	Sends the login. What is too long for its buffer is cut: first the nickname, then the password.
*/
void
HotlineClient::_SendLogin(const Login& login)
{
	TransactionBuilder builder;
	builder.BuildParamInt16(kFieldIcon, login.icon);
	// Room for the three texts together: without the two numbers and the headers of their own.
	size_t room = TransactionBuilder::kCapacity - kHeaderSize - 2 * (kParamHeaderSize + 2)
		- 3 * kParamHeaderSize;
	room -= add_login_text(builder, kFieldLogin, login.name, room, true);
	room -= add_login_text(builder, kFieldPassword, login.password, room, true);
	add_login_text(builder, kFieldNick, login.nick, room, false);
	builder.BuildParamInt16(kFieldVersion, kClientVersion);

	fLoginTrans = fRequests.Send(kCmdLogin, builder, TaskList::kTaskLogin);
}
