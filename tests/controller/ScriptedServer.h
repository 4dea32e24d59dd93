/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SCRIPTED_SERVER_H
#define SCRIPTED_SERVER_H


#include <cstdint>
#include <string>
#include <utility>
#include <vector>


/*!	A transaction as it stands on the wire. */
struct WireTransaction {
	uint32_t type = 0;
	uint32_t id = 0;
	std::vector<std::pair<uint16_t, std::string>> fields;

	// The value of the first such field; nothing if there is none.
	std::string Field(uint16_t field) const;
	bool HasField(uint16_t field) const;
};


using WireFields = std::vector<std::pair<uint16_t, std::string>>;


std::string wire_uint16(uint16_t value);
std::string wire_user(uint16_t socket, uint16_t icon, uint16_t color, const std::string& nick);


/*!	A server on 127.0.0.1 that does what the test tells it, one connection at a time, without a
	thread.
	What waits for the client serves the application meanwhile, and is a test failure when it takes
	too long.
*/
class ScriptedServer {
public:
	ScriptedServer();
	ScriptedServer(const ScriptedServer&) = delete;
	~ScriptedServer();

	ScriptedServer& operator=(const ScriptedServer&) = delete;

	uint16_t Port() const { return fPort; }

	// Takes the next connection, in place of the current one.
	void Accept();
	void ShakeHands();
	WireTransaction Read();
	WireTransaction Read(uint32_t type);

	void Send(uint32_t type, const WireFields& fields);
	void Reply(uint32_t id, const WireFields& fields, uint32_t error = 0);
	void SendBytes(const std::string& bytes);

	// Accepts, shakes hands and answers the login. The user lists that are asked for are left
	// unread.
	void AcceptAndLogIn(const std::string& serverName);

	void HangUp();
	bool WaitForHangUp();

private:
	bool _ReceiveUpTo(size_t size);

	int fListener;
	int fConnection;
	uint16_t fPort;
	// Received, but not read yet.
	std::string fInput;
};


#endif // SCRIPTED_SERVER_H
