/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RawServer.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cstdio>
#include <cstdlib>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/uio.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "WaitFor.h"
#include "WireBytes.h"


static bool
is_ready(int descriptor, short events, int milliseconds)
{
	pollfd waiting = {descriptor, events, 0};
	return poll(&waiting, 1, milliseconds) == 1;
}


/*!	Looks for a millisecond at a time, so that what comes soon is not waited for any longer. */
static bool
wait_for(int descriptor, short events)
{
	return WaitFor([descriptor, events] {
		return is_ready(descriptor, events, 1);
	});
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


static std::string
wire_params(const WireFields& fields)
{
	std::string params;
	for (const auto& [field, value] : fields)
		params += wire_param(field, value);
	return params;
}


RawServer::RawServer(int backlog)
	: fListener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)),
	  fConnection(-1),
	  fPort(0)
{
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


RawServer::~RawServer()
{
	Hangup();
	close(fListener);
}


bool
RawServer::Accept()
{
	Hangup();
	if (!wait_for(fListener, POLLIN))
		return false;
	fConnection = accept4(fListener, nullptr, nullptr, SOCK_CLOEXEC);
	const int on = 1;
	setsockopt(fConnection, IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
	return fConnection >= 0;
}


bool
RawServer::HasCaller() const
{
	return is_ready(fListener, POLLIN, 0);
}


std::string
RawServer::Read(size_t size)
{
	std::string bytes;
	while (bytes.size() < size && wait_for(fConnection, POLLIN)) {
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
	std::string header = Read(WireTransaction::kHeaderSize);
	if (header.size() < WireTransaction::kHeaderSize)
		return header;
	return header + Read(wire_number_at(header, 12, 4));
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
	while (wait_for(fConnection, POLLIN)) {
		if (receive_bytes(fConnection, buffer, sizeof(buffer)) < 1)
			return true;
	}
	return false;
}


void
RawServer::DropInput()
{
	char buffer[65536];
	while (is_ready(fConnection, POLLIN, 0)) {
		if (receive_bytes(fConnection, buffer, sizeof(buffer)) < 1)
			break;
	}
}


bool
RawServer::Send(const std::string& bytes)
{
	size_t sent = 0;
	while (sent < bytes.size()) {
		if (!wait_for(fConnection, POLLOUT))
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
RawServer::ShakeHands()
{
	EXPECT_EQ(std::string("TRTPHOTL\0\1\0\2", 12), Read(12));
	Send(std::string("TRTP\0\0\0\0", 8));
}


WireTransaction
RawServer::ReadRequest()
{
	const std::string bytes = ReadTransaction();
	EXPECT_GE(bytes.size(), WireTransaction::kHeaderSize + wire_number_at(bytes, 12, 4))
		<< wire_dump(bytes);
	return WireTransaction(bytes);
}


WireTransaction
RawServer::ReadRequest(uint32_t type)
{
	WireTransaction request = ReadRequest();
	EXPECT_EQ(type, request.type);
	return request;
}


void
RawServer::Send(uint32_t type, const WireFields& fields)
{
	EXPECT_TRUE(Send(wire_transaction(type, 0, wire_params(fields))));
}


void
RawServer::Reply(uint32_t id, const WireFields& fields, uint32_t error)
{
	EXPECT_TRUE(Send(wire_transaction(0x10000, id, wire_params(fields), error)));
}


void
RawServer::AcceptAndLogIn(const std::string& serverName)
{
	EXPECT_TRUE(Accept());
	ShakeHands();
	Reply(ReadRequest(107).id, {{160, wire16(190)}, {162, serverName}});
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
