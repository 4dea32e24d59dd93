/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RawServer.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/uio.h>
#include <unistd.h>


// In milliseconds.
static const int kDeadline = 10000;


static bool
wait_for(int descriptor, short events, int milliseconds)
{
	pollfd waiting = {descriptor, events, 0};
	int result = poll(&waiting, 1, milliseconds);
	while (result < 0 && errno == EINTR)
		result = poll(&waiting, 1, milliseconds);
	return result == 1;
}


// Suites that interpose recv() and send() for the client's sake do not mean the server's.
static ssize_t
receive_bytes(int descriptor, char* buffer, size_t size)
{
	iovec part = {buffer, size};
	msghdr message = {};
	message.msg_iov = &part;
	message.msg_iovlen = 1;
	return recvmsg(descriptor, &message, 0);
}


static ssize_t
send_bytes(int descriptor, const char* bytes, size_t size)
{
	iovec part = {const_cast<char*>(bytes), size};
	msghdr message = {};
	message.msg_iov = &part;
	message.msg_iovlen = 1;
	return sendmsg(descriptor, &message, MSG_NOSIGNAL | MSG_DONTWAIT);
}


RawServer::RawServer()
	: fListener(-1),
	  fConnection(-1),
	  fPort(0)
{
	_Listen(16);
}


RawServer::RawServer(int backlog)
	: fListener(-1),
	  fConnection(-1),
	  fPort(0)
{
	_Listen(backlog);
}


RawServer::~RawServer()
{
	Hangup();
	close(fListener);
}


bool
RawServer::Accept()
{
	Hangup();
	if (!wait_for(fListener, POLLIN, kDeadline))
		return false;
	fConnection = accept(fListener, nullptr, nullptr);
	const int on = 1;
	setsockopt(fConnection, IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
	return fConnection >= 0;
}


bool
RawServer::HasCaller() const
{
	return wait_for(fListener, POLLIN, 0);
}


std::string
RawServer::Read(size_t size)
{
	std::string bytes;
	while (bytes.size() < size && wait_for(fConnection, POLLIN, kDeadline)) {
		char buffer[65536];
		const size_t left = size - bytes.size();
		const ssize_t received = receive_bytes(fConnection, buffer, std::min(left, sizeof(buffer)));
		if (received < 1)
			break;
		bytes.append(buffer, static_cast<size_t>(received));
	}
	return bytes;
}


std::string
RawServer::ReadTransaction()
{
	std::string bytes = Read(22);
	if (bytes.size() < 22)
		return bytes;

	size_t size = 0;
	for (size_t i = 12; i < 16; i++)
		size = size << 8 | static_cast<uint8_t>(bytes[i]);
	return bytes + Read(size - 2);
}


std::string
RawServer::ReadToEnd()
{
	return Read(SIZE_MAX);
}


bool
RawServer::WaitForEnd()
{
	char buffer[65536];
	while (wait_for(fConnection, POLLIN, kDeadline)) {
		if (receive_bytes(fConnection, buffer, sizeof(buffer)) < 1)
			return true;
	}
	return false;
}


void
RawServer::DropInput()
{
	char buffer[65536];
	while (wait_for(fConnection, POLLIN, 0)) {
		if (receive_bytes(fConnection, buffer, sizeof(buffer)) < 1)
			break;
	}
}


bool
RawServer::Send(const std::string& bytes)
{
	size_t sent = 0;
	while (sent < bytes.size()) {
		if (!wait_for(fConnection, POLLOUT, kDeadline))
			return false;
		const ssize_t result = send_bytes(fConnection, bytes.data() + sent, bytes.size() - sent);
		if (result < 1)
			return false;
		sent += static_cast<size_t>(result);
	}
	return true;
}


bool
RawServer::SendOneByOne(const std::string& bytes)
{
	for (const char byte : bytes) {
		if (!Send(std::string(1, byte)))
			return false;
	}
	return true;
}


void
RawServer::SayNoMore()
{
	shutdown(fConnection, SHUT_WR);
}


void
RawServer::Hangup()
{
	if (fConnection >= 0)
		close(fConnection);
	fConnection = -1;
}


void
RawServer::Reset()
{
	const linger immediately = {1, 0};
	setsockopt(fConnection, SOL_SOCKET, SO_LINGER, &immediately, sizeof(immediately));
	Hangup();
}


void
RawServer::_Listen(int backlog)
{
	fListener = socket(AF_INET, SOCK_STREAM, 0);
	sockaddr_in address = {};
	address.sin_family = AF_INET;
	address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
	socklen_t length = sizeof(address);
	if (bind(fListener, reinterpret_cast<sockaddr*>(&address), length) != 0
		|| listen(fListener, backlog) != 0
		|| getsockname(fListener, reinterpret_cast<sockaddr*>(&address), &length) != 0) {
		perror("no listener on 127.0.0.1");
		abort();
	}
	fPort = ntohs(address.sin_port);
}
