/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef RAW_CLIENT_H
#define RAW_CLIENT_H


#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>


// Bytes as they travel, written down by the test itself.

std::string Int16(uint16_t value);
std::string Int32(uint32_t value);
std::string Field(uint16_t id, const std::string& value);
std::string Message(uint32_t type, uint32_t id, const std::vector<std::string>& fields,
	uint32_t error = 0);
std::string Encoded(std::string credential);
//! For failure messages: printable bytes as they are, the others in hexadecimal.
std::string Readable(const std::string& bytes);


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
	void Request(uint32_t type, const std::vector<std::string>& fields);
	void Type(const std::string& line);
	uint32_t LastRequest() const { return fLastRequest; }

	std::string Receive(size_t size);
	std::string ReceiveMessage();
	std::string ReceiveMessageOfType(uint32_t type);
	bool ReceiveEnd();
	void Close();

	bool ShakeHands();
	void LogIn(const std::string& nick, uint16_t icon);
	uint16_t Join(const std::string& nick, uint16_t icon = 128);

private:
	int fSocket;
	uint32_t fLastRequest = 0;
};


//! What a received message says: header words and the fields in their order.
struct Parsed {
	explicit Parsed(const std::string& message);

	uint32_t type = 0;
	uint32_t id = 0;
	uint32_t error = 0;
	std::vector<std::pair<uint16_t, std::string>> fields;

	//! The first field with that id; empty if there is none.
	std::string Text(uint16_t field) const;
	//! The same as a number of 16 bits.
	uint16_t Number(uint16_t field) const;
};


#endif // RAW_CLIENT_H
