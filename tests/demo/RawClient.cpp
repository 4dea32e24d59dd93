/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RawClient.h"

#include <cstdio>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>


static const size_t kHeaderSize = 20;
static const uint32_t kReply = 0x00010000;


static uint32_t
number_at(const std::string& bytes, size_t offset, size_t size)
{
	uint32_t value = 0;
	for (size_t i = offset; i < offset + size && i < bytes.size(); i++)
		value = value << 8 | static_cast<unsigned char>(bytes[i]);
	return value;
}


std::string
Int16(uint16_t value)
{
	return {static_cast<char>(value >> 8), static_cast<char>(value)};
}


std::string
Int32(uint32_t value)
{
	return Int16(static_cast<uint16_t>(value >> 16)) + Int16(static_cast<uint16_t>(value));
}


std::string
Field(uint16_t id, const std::string& value)
{
	return Int16(id) + Int16(static_cast<uint16_t>(value.size())) + value;
}


std::string
Message(uint32_t type, uint32_t id, const std::vector<std::string>& fields, uint32_t error)
{
	std::string data = Int16(static_cast<uint16_t>(fields.size()));
	for (const std::string& field : fields)
		data += field;
	std::string size = Int32(static_cast<uint32_t>(data.size()));
	return Int32(type) + Int32(id) + Int32(error) + size + size + data;
}


std::string
Encoded(std::string credential)
{
	for (char& byte : credential)
		byte = static_cast<char>(255 - static_cast<unsigned char>(byte));
	return credential;
}


std::string
Readable(const std::string& bytes)
{
	std::string text;
	for (char byte : bytes) {
		char hexadecimal[8];
		snprintf(hexadecimal, sizeof(hexadecimal), "<%02x>", static_cast<unsigned char>(byte));
		text += byte >= ' ' && byte <= '~' ? std::string(1, byte) : hexadecimal;
	}
	return text;
}


RawClient::RawClient(uint16_t port, const char* address)
	: fSocket(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
	timeval deadline = {10, 0};
	setsockopt(fSocket, SOL_SOCKET, SO_RCVTIMEO, &deadline, sizeof(deadline));
	setsockopt(fSocket, SOL_SOCKET, SO_SNDTIMEO, &deadline, sizeof(deadline));

	sockaddr_in where = {};
	where.sin_family = AF_INET;
	where.sin_addr.s_addr = inet_addr(address);
	where.sin_port = htons(port);
	if (connect(fSocket, reinterpret_cast<sockaddr*>(&where), sizeof(where)) != 0)
		Close();
}


RawClient::~RawClient()
{
	Close();
}


bool
RawClient::Send(const std::string& bytes)
{
	size_t sent = 0;
	while (sent < bytes.size()) {
		ssize_t count = send(fSocket, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
		if (count <= 0)
			return false;
		sent += static_cast<size_t>(count);
	}
	return true;
}


void
RawClient::Request(uint32_t type, const std::vector<std::string>& fields)
{
	Send(Message(type, ++fLastRequest, fields));
}


//! Says a line in the chat.
void
RawClient::Type(const std::string& line)
{
	Request(105, {Field(101, line)});
}


std::string
RawClient::Receive(size_t size)
{
	std::string bytes(size, 0);
	size_t received = 0;
	while (received < size) {
		ssize_t count = recv(fSocket, &bytes[received], size - received, 0);
		if (count <= 0)
			break;
		received += static_cast<size_t>(count);
	}
	bytes.resize(received);
	return bytes;
}


//! One whole message; less than that when the connection ends or is silent.
std::string
RawClient::ReceiveMessage()
{
	std::string header = Receive(kHeaderSize);
	return header.size() < kHeaderSize ? header : header + Receive(number_at(header, 12, 4));
}


//! The next message of that type; what stands before it is dropped.
std::string
RawClient::ReceiveMessageOfType(uint32_t type)
{
	while (true) {
		std::string message = ReceiveMessage();
		if (message.size() < kHeaderSize || number_at(message, 0, 4) == type)
			return message;
	}
}


//! Whether the server closed the connection in order, with nothing left to read.
bool
RawClient::ReceiveEnd()
{
	char byte;
	return recv(fSocket, &byte, 1, 0) == 0;
}


void
RawClient::Close()
{
	if (fSocket >= 0)
		close(fSocket);
	fSocket = -1;
}


bool
RawClient::ShakeHands()
{
	return Send(std::string("TRTPHOTL\x00\x01\x00\x02", 12))
		&& Receive(8) == std::string("TRTP\0\0\0\0", 8);
}


//! Everything up to the login request; reads nothing but the handshake.
void
RawClient::LogIn(const std::string& nick, uint16_t icon)
{
	ShakeHands();
	Request(107, {Field(104, Int16(icon)), Field(102, nick), Field(160, Int16(151))});
}


/*! Everything until the user is in, the news of that included.
	\return The user's socket number, 0 if that did not work.
*/
uint16_t
RawClient::Join(const std::string& nick, uint16_t icon)
{
	LogIn(nick, icon);
	ReceiveMessageOfType(109);
	Request(121, {Field(102, nick), Field(104, Int16(icon)), Field(113, Int16(0))});
	ReceiveMessageOfType(kReply);
	return Parsed(ReceiveMessageOfType(301)).Number(103);
}


Parsed::Parsed(const std::string& message)
	: type(number_at(message, 0, 4)),
	  id(number_at(message, 4, 4)),
	  error(number_at(message, 8, 4))
{
	size_t offset = kHeaderSize + 2;
	while (offset + 4 <= message.size()) {
		auto field = static_cast<uint16_t>(number_at(message, offset, 2));
		size_t length = number_at(message, offset + 2, 2);
		fields.emplace_back(field, message.substr(offset + 4, length));
		offset += 4 + length;
	}
}


std::string
Parsed::Text(uint16_t field) const
{
	for (const auto& entry : fields) {
		if (entry.first == field)
			return entry.second;
	}
	return "";
}


uint16_t
Parsed::Number(uint16_t field) const
{
	return static_cast<uint16_t>(number_at(Text(field), 0, 2));
}
