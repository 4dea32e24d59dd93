/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef RAW_CLIENT_H
#define RAW_CLIENT_H


#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "WireBytes.h"
#include "WireTransaction.h"


const uint32_t kReply = 0x00010000;

// What a test expects of the server. Fields are those of wire_param().
std::string Message(uint32_t type, uint32_t id, const std::vector<std::string>& fields,
	uint32_t error = 0);
std::string Refusal(uint32_t id, const std::string& text);
std::string UserNotice(uint32_t id, uint16_t socket, uint16_t icon, uint16_t status,
	const std::string& nick);
std::string Encoded(std::string credential);


/*!	A client that sends and receives what it is told to, byte for byte. Every wait has a deadline
	of ten seconds; what is then missing shows up as a shorter result.
*/
class RawClient {
public:
	explicit RawClient(uint16_t port, const char* address = "127.0.0.1");
	~RawClient();

	RawClient(const RawClient&) = delete;
	RawClient& operator=(const RawClient&) = delete;

	bool IsConnected() const { return fSocket >= 0; }
	int Socket() const { return fSocket; }

	bool Send(const std::string& bytes);
	void SendOneByOne(const std::string& bytes);
	void Request(uint32_t type, const std::vector<std::string>& fields);
	void Type(const std::string& line);
	// The same two, and what the server says next.
	std::string Ask(uint32_t type, const std::vector<std::string>& fields);
	std::string Say(const std::string& line);
	uint32_t LastRequest() const { return fLastRequest; }

	std::string Receive(size_t size);
	std::string ReceiveMessage();
	std::string ReceiveMessageOfType(uint32_t type);
	// The text of the next message.
	std::string ReceiveText();
	bool ReceiveEnd();
	void Close();

	bool ShakeHands();
	void LogIn(const std::string& nick, uint16_t icon);
	uint16_t Join(const std::string& nick, uint16_t icon = 128);

private:
	int fSocket;
	uint32_t fLastRequest = 0;
};


#endif // RAW_CLIENT_H
