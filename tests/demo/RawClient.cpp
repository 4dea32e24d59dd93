/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RawClient.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>


std::string
Message(uint32_t type, uint32_t id, const std::vector<std::string>& fields, uint32_t error)
{
	std::string params;
	for (const std::string& field : fields)
		params += field;
	return wire_transaction(type, id, params, error);
}


std::string
Refusal(uint32_t id, const std::string& text)
{
	return Message(kReply, id, {wire_param(100, text)}, 1);
}


std::string
UserNotice(uint32_t id, uint16_t socket, uint16_t icon, uint16_t status, const std::string& nick)
{
	return Message(301, id,
		{wire_param(103, wire16(socket)), wire_param(104, wire16(icon)),
			wire_param(112, wire16(status)), wire_param(102, nick)});
}


std::string
Encoded(std::string credential)
{
	for (char& byte : credential)
		byte = static_cast<char>(255 - static_cast<unsigned char>(byte));
	return credential;
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
RawClient::SendOneByOne(const std::string& bytes)
{
	for (const char byte : bytes)
		Send(std::string(1, byte));
}


void
RawClient::Request(uint32_t type, const std::vector<std::string>& fields)
{
	Send(Message(type, ++fLastRequest, fields));
}


/*!	Says a line in the chat. */
void
RawClient::Type(const std::string& line)
{
	Request(105, {wire_param(101, line)});
}


std::string
RawClient::Ask(uint32_t type, const std::vector<std::string>& fields)
{
	Request(type, fields);
	return ReceiveMessage();
}


std::string
RawClient::Say(const std::string& line)
{
	Type(line);
	return ReceiveText();
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


/*!	One whole message; less than that when the connection ends or is silent. */
std::string
RawClient::ReceiveMessage()
{
	std::string header = Receive(WireTransaction::kHeaderSize);
	return header.size() < WireTransaction::kHeaderSize
		? header
		: header + Receive(wire_number_at(header, 12, 4));
}


/*!	The next message of that type; what stands before it is dropped. */
std::string
RawClient::ReceiveMessageOfType(uint32_t type)
{
	while (true) {
		std::string message = ReceiveMessage();
		if (message.size() < WireTransaction::kHeaderSize || wire_number_at(message, 0, 4) == type)
			return message;
	}
}


std::string
RawClient::ReceiveText()
{
	return WireTransaction(ReceiveMessage()).Field(101);
}


/*!	Whether the server closed the connection in order, with nothing left to read. */
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


/*!	Everything up to the login request; reads nothing but the handshake. */
void
RawClient::LogIn(const std::string& nick, uint16_t icon)
{
	ShakeHands();
	Request(107,
		{wire_param(104, wire16(icon)), wire_param(102, nick), wire_param(160, wire16(151))});
}


/*!	Everything until the user is in, the news of that included.
	\return The user's socket number, 0 if that did not work.
*/
uint16_t
RawClient::Join(const std::string& nick, uint16_t icon)
{
	LogIn(nick, icon);
	ReceiveMessageOfType(109);
	Request(121,
		{wire_param(102, nick), wire_param(104, wire16(icon)), wire_param(113, wire16(0))});
	ReceiveMessageOfType(kReply);
	return WireTransaction(ReceiveMessageOfType(301)).Number(103);
}
