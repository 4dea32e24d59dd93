/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ScriptedServer.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "WaitFor.h"


static const size_t kHeaderBytes = 22;


static std::string
wire_uint32(uint32_t value)
{
	return wire_uint16(uint16_t(value >> 16)) + wire_uint16(uint16_t(value & 0xffff));
}


static uint32_t
read_number(const std::string& bytes, size_t offset, size_t width)
{
	uint32_t value = 0;
	for (size_t i = 0; i < width; i++)
		value = value << 8 | uint8_t(bytes[offset + i]);
	return value;
}


static std::string
wire_transaction(uint32_t type, uint32_t number, uint32_t error, const WireFields& fields)
{
	std::string payload = wire_uint16(uint16_t(fields.size()));
	for (const auto& [field, value] : fields)
		payload += wire_uint16(field) + wire_uint16(uint16_t(value.size())) + value;
	const std::string size = wire_uint32(uint32_t(payload.size()));
	return wire_uint32(type) + wire_uint32(number) + wire_uint32(error) + size + size + payload;
}


std::string
wire_uint16(uint16_t value)
{
	return {char(value >> 8), char(value & 0xff)};
}


/*!	An entry of the user list: id, icon, status, length of the nick, nick. */
std::string
wire_user(uint16_t socket, uint16_t icon, uint16_t color, const std::string& nick)
{
	return wire_uint16(socket) + wire_uint16(icon) + wire_uint16(color)
		+ wire_uint16(uint16_t(nick.size())) + nick;
}


std::string
WireTransaction::Field(uint16_t field) const
{
	for (const auto& [number, value] : fields) {
		if (number == field)
			return value;
	}
	return "";
}


bool
WireTransaction::HasField(uint16_t field) const
{
	for (const auto& entry : fields) {
		if (entry.first == field)
			return true;
	}
	return false;
}


// #pragma mark -


ScriptedServer::ScriptedServer()
	: fListener(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)),
	  fConnection(-1),
	  fPort(0)
{
	sockaddr_in address = {};
	address.sin_family = AF_INET;
	address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
	socklen_t size = sizeof(address);
	EXPECT_EQ(0, bind(fListener, reinterpret_cast<sockaddr*>(&address), size));
	EXPECT_EQ(0, listen(fListener, 8));
	EXPECT_EQ(0, getsockname(fListener, reinterpret_cast<sockaddr*>(&address), &size));
	fPort = ntohs(address.sin_port);
}


ScriptedServer::~ScriptedServer()
{
	HangUp();
	close(fListener);
}


void
ScriptedServer::Accept()
{
	HangUp();
	EXPECT_TRUE(WaitFor([this] {
		fConnection = accept4(fListener, NULL, NULL, SOCK_NONBLOCK | SOCK_CLOEXEC);
		return fConnection >= 0;
	})) << "nobody connects";
}


void
ScriptedServer::ShakeHands()
{
	EXPECT_TRUE(_ReceiveUpTo(12)) << "no handshake";
	EXPECT_EQ(std::string("TRTPHOTL\0\1\0\2", 12), fInput.substr(0, 12));
	fInput.erase(0, 12);
	SendBytes(std::string("TRTP\0\0\0\0", 8));
}


/*!	Reads one transaction. */
WireTransaction
ScriptedServer::Read()
{
	WireTransaction transaction;
	size_t size = kHeaderBytes - 2;
	bool complete = _ReceiveUpTo(size);
	if (complete) {
		size += read_number(fInput, 12, 4);
		complete = _ReceiveUpTo(size);
	}
	EXPECT_TRUE(complete) << "no transaction, but " << fInput.size() << " bytes";
	if (!complete)
		return transaction;

	transaction.type = read_number(fInput, 0, 4);
	transaction.id = read_number(fInput, 4, 4);
	size_t offset = kHeaderBytes;
	for (uint32_t i = 0; i < read_number(fInput, kHeaderBytes - 2, 2); i++) {
		const uint16_t field = uint16_t(read_number(fInput, offset, 2));
		const size_t length = read_number(fInput, offset + 2, 2);
		transaction.fields.emplace_back(field, fInput.substr(offset + 4, length));
		offset += 4 + length;
	}
	fInput.erase(0, size);
	return transaction;
}


/*!	Reads one transaction, which has to be of this type. */
WireTransaction
ScriptedServer::Read(uint32_t type)
{
	WireTransaction transaction = Read();
	EXPECT_EQ(type, transaction.type);
	return transaction;
}


void
ScriptedServer::Send(uint32_t type, const WireFields& fields)
{
	SendBytes(wire_transaction(type, 0, 0, fields));
}


void
ScriptedServer::Reply(uint32_t id, const WireFields& fields, uint32_t error)
{
	SendBytes(wire_transaction(0x10000, id, error, fields));
}


void
ScriptedServer::SendBytes(const std::string& bytes)
{
	size_t sent = 0;
	EXPECT_TRUE(WaitFor([&] {
		const ssize_t count = send(fConnection, bytes.data() + sent, bytes.size() - sent,
			MSG_NOSIGNAL);
		if (count > 0)
			sent += size_t(count);
		return sent == bytes.size();
	})) << "the client does not read";
}


void
ScriptedServer::AcceptAndLogIn(const std::string& serverName)
{
	Accept();
	ShakeHands();
	const WireTransaction login = Read(107);
	Reply(login.id, {{160, wire_uint16(190)}, {162, serverName}});
}


void
ScriptedServer::HangUp()
{
	if (fConnection >= 0)
		close(fConnection);
	fConnection = -1;
	fInput.clear();
}


/*!	Waits until the client has closed the connection. What it sent before is forgotten. */
bool
ScriptedServer::WaitForHangUp()
{
	return WaitFor([this] {
		char buffer[4096];
		return recv(fConnection, buffer, sizeof(buffer), 0) == 0;
	});
}


bool
ScriptedServer::_ReceiveUpTo(size_t size)
{
	return WaitFor([this, size] {
		char buffer[4096];
		const ssize_t count = recv(fConnection, buffer, sizeof(buffer), 0);
		if (count > 0)
			fInput.append(buffer, size_t(count));
		return fInput.size() >= size;
	});
}
