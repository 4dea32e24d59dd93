/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "SocketReference.h"

#include <atomic>
#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>


class SocketReference::OpenSocket {
public:
	explicit OpenSocket(int descriptor);
	OpenSocket(const OpenSocket&) = delete;
	~OpenSocket();

	OpenSocket& operator=(const OpenSocket&) = delete;

	const int number;
	std::atomic<bool> shutDown;
};


SocketReference::OpenSocket::OpenSocket(int descriptor)
	: number(descriptor),
	  shutDown(false)
{
}


SocketReference::OpenSocket::~OpenSocket()
{
	close(number);
}


// #pragma mark -


/*!	\param number An open socket, which now belongs to its shares. */
SocketReference::SocketReference(int number)
	: fSocket(std::make_shared<OpenSocket>(number))
{
}


int
SocketReference::Number() const
{
	return fSocket != NULL ? fSocket->number : -1;
}


/*!	Ends the connection in both directions: every thread that waits for it wakes up, and nothing is
	sent any more. The number stays taken. Does nothing when no socket is set.
*/
void
SocketReference::ShutDown() const
{
	if (fSocket == NULL)
		return;

	fSocket->shutDown = true;
	shutdown(fSocket->number, SHUT_RDWR);
}


/*!	Sends all bytes, in as many calls as it takes. A call that fails, is interrupted or runs into
	the socket's time-out shuts the connection down: what was begun cannot be completed, and nothing
	may follow it.
	\return \a length, or -1.
*/
ssize_t
SocketReference::SendFully(const void* data, size_t length) const
{
	return _Send(data, length, MSG_NOSIGNAL);
}


/*!	The same without waiting for the other side: no more bytes than there is room for.
	\return How many that are, or -1.
*/
ssize_t
SocketReference::SendAtOnce(const void* data, size_t length) const
{
	return _Send(data, length, MSG_NOSIGNAL | MSG_DONTWAIT);
}


/*!	Receives exactly that many bytes. Each call waits for at most the socket's time-out.
	\return \a length, or -1 when a call failed or the other side has closed the connection.
*/
ssize_t
SocketReference::ReceiveFully(void* buffer, size_t length) const
{
	if (fSocket == NULL)
		return -1;

	char* bytes = static_cast<char*>(buffer);
	size_t received = 0;
	while (received < length) {
		const ssize_t result = recv(fSocket->number, bytes + received, length - received, 0);
		if (result < 1)
			return -1;
		received += static_cast<size_t>(result);
	}
	return static_cast<ssize_t>(length);
}


ssize_t
SocketReference::_Send(const void* data, size_t length, int flags) const
{
	if (fSocket == NULL)
		return -1;

	const char* bytes = static_cast<const char*>(data);
	size_t sent = 0;
	while (sent < length) {
		if (fSocket->shutDown)
			return -1;

		const ssize_t result = send(fSocket->number, bytes + sent, length - sent, flags);
		if (result < 0 && (flags & MSG_DONTWAIT) != 0 && errno == EAGAIN)
			break;
		if (result < 1) {
			ShutDown();
			return -1;
		}
		sent += static_cast<size_t>(result);
	}
	return static_cast<ssize_t>(sent);
}
