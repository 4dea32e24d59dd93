/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef RAW_SERVER_H
#define RAW_SERVER_H


#include <cstdint>
#include <string>

#include "WireTransaction.h"


/*!	A listener on 127.0.0.1 with one connection at a time, driven by the test itself, byte by byte
	or transaction by transaction, without a thread.
	Every wait has a deadline of ten seconds, and serves the windows of the suite meanwhile. Bytes
	that have not come by then are missing in the result; a transaction that has not is a failure.
*/
class RawServer {
public:
	// A backlog may be so short that further connections are left without an answer.
	explicit RawServer(int backlog = 16);
	RawServer(const RawServer&) = delete;
	~RawServer();

	RawServer& operator=(const RawServer&) = delete;

	uint16_t Port() const { return fPort; }

	// Takes the next connection, in place of the current one.
	bool Accept();
	// Whether somebody waits to be accepted.
	bool HasCaller() const;

	// Exactly so many bytes, or fewer when the client has closed the connection or says no more.
	std::string Read(size_t size);
	std::string ReadTransaction();
	// Everything until the client closes the connection.
	std::string ReadToEnd();
	// Whether the client has closed the connection; what it still sends is dropped.
	bool WaitForEnd();

	// Forgets what has come so far, without waiting.
	void DropInput();

	bool Send(const std::string& bytes);
	// As many segments as there are bytes.
	bool SendOneByOne(const std::string& bytes);

	void ShakeHands();
	WireTransaction ReadRequest();
	// The next one, which has to be of this type.
	WireTransaction ReadRequest(uint32_t type);
	void Send(uint32_t type, const WireFields& fields);
	void Reply(uint32_t id, const WireFields& fields, uint32_t error = 0);
	// Accepts, shakes hands and answers the login. The user lists that are asked for are left
	// unread.
	void AcceptAndLogIn(const std::string& serverName);

	// The client reads the end of what was sent, and may still be read from.
	void SayNoMore();
	void Hangup();
	// Without a farewell: the client's next call fails.
	void Reset();

private:
	int fListener;
	int fConnection;
	uint16_t fPort;
};


#endif // RAW_SERVER_H
