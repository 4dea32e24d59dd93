/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransferConnection.h"

#include <cerrno>
#include <cstdio>
#include <netdb.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>


static void
set_timeout(int socket, int option, int seconds)
{
	if (seconds <= 0)
		return;

	struct timeval timeout = {};
	timeout.tv_sec = seconds;
	setsockopt(socket, SOL_SOCKET, option, &timeout, sizeof(timeout));
}


TransferConnection::TransferConnection()
	: fSocket(-1)
{
}


TransferConnection::~TransferConnection()
{
	Close();
}


/*!	Resolves the address for IPv4 and connects to the first result.
	\param controlPort The port of the control connection; transfers travel on the next one.
	\param receiveTimeout, sendTimeout In seconds, for each call; 0 to wait for ever.
	\return \c false if any of it failed; nothing is open then.
*/
bool
TransferConnection::ConnectTo(const char* address, uint16 controlPort, int receiveTimeout,
	int sendTimeout)
{
	char port[16];
	snprintf(port, sizeof(port), "%u", static_cast<unsigned int>(controlPort) + 1);

	struct addrinfo hints = {};
	hints.ai_family = AF_INET;
	hints.ai_socktype = SOCK_STREAM;
	struct addrinfo* addresses = NULL;
	if (getaddrinfo(address, port, &hints, &addresses) != 0 || addresses == NULL)
		return false;

	Close();
	fSocket = socket(addresses->ai_family, addresses->ai_socktype, addresses->ai_protocol);
	bool connected = false;
	if (fSocket >= 0) {
		set_timeout(fSocket, SO_RCVTIMEO, receiveTimeout);
		set_timeout(fSocket, SO_SNDTIMEO, sendTimeout);
		connected = connect(fSocket, addresses->ai_addr, addresses->ai_addrlen) == 0;
	}

	freeaddrinfo(addresses);
	if (!connected)
		Close();
	return connected;
}


void
TransferConnection::Close()
{
	if (fSocket >= 0)
		close(fSocket);
	fSocket = -1;
}


/*!	One call; what it returns may be less than \a size, and is below 1 when it failed or timed out.
*/
ssize_t
TransferConnection::Send(const void* data, size_t size)
{
	ssize_t sent;
	do {
		sent = send(fSocket, data, size, MSG_NOSIGNAL);
	} while (sent < 0 && errno == EINTR);
	return sent;
}


/*!	Sends everything, in as many calls as it takes.
	\return \c false after the first call that failed or timed out.
*/
bool
TransferConnection::SendAll(const void* data, size_t size)
{
	const uint8* bytes = static_cast<const uint8*>(data);
	while (size > 0) {
		const ssize_t sent = Send(bytes, size);
		if (sent < 1)
			return false;
		bytes += sent;
		size -= static_cast<size_t>(sent);
	}
	return true;
}


/*!	One call; 0 when the other side has closed, below 0 on an error or a time-out. */
ssize_t
TransferConnection::Receive(void* buffer, size_t size)
{
	ssize_t received;
	do {
		received = recv(fSocket, buffer, size, 0);
	} while (received < 0 && errno == EINTR);
	return received;
}


/*!	Fills the buffer, in as many calls as it takes.
	\return \c false if the connection ended, failed or timed out before.
*/
bool
TransferConnection::ReceiveExactly(void* buffer, size_t size)
{
	uint8* bytes = static_cast<uint8*>(buffer);
	while (size > 0) {
		const ssize_t received = Receive(bytes, size);
		if (received < 1)
			return false;
		bytes += received;
		size -= static_cast<size_t>(received);
	}
	return true;
}
