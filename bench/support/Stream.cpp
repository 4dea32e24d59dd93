/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Stream.h"

#include <netinet/in.h>
#include <sys/socket.h>

#include "Fail.h"


static sockaddr_in
loopback_address(uint16_t port)
{
	sockaddr_in address = {};
	address.sin_family = AF_INET;
	address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
	address.sin_port = htons(port);
	return address;
}


int
ListenOnLoopback(uint16_t* _port)
{
	const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
	sockaddr_in address = loopback_address(0);
	socklen_t size = sizeof(address);
	if (listener < 0 || bind(listener, reinterpret_cast<sockaddr*>(&address), size) != 0
		|| listen(listener, 16) != 0
		|| getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) != 0)
		Fail("listen");
	*_port = ntohs(address.sin_port);
	return listener;
}


int
ConnectToLoopback(uint16_t port)
{
	const int stream = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
	const sockaddr_in address = loopback_address(port);
	if (stream < 0
		|| connect(stream, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0)
		Fail("connect");
	return stream;
}


void
SendFully(int socket, const void* data, size_t size)
{
	const uint8_t* bytes = static_cast<const uint8_t*>(data);
	while (size > 0) {
		const ssize_t sent = send(socket, bytes, size, MSG_NOSIGNAL);
		if (sent < 1)
			Fail("send");
		bytes += sent;
		size -= static_cast<size_t>(sent);
	}
}


void
ReceiveFully(int socket, void* buffer, size_t size)
{
	uint8_t* bytes = static_cast<uint8_t*>(buffer);
	while (size > 0) {
		const ssize_t received = recv(socket, bytes, size, 0);
		if (received < 1)
			Fail("recv");
		bytes += received;
		size -= static_cast<size_t>(received);
	}
}
