/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CLIENT_FIXTURE_H
#define CLIENT_FIXTURE_H


#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "HotlineClient.h"
#include "MessageRecorder.h"
#include "ProcessCounts.h"
#include "RawServer.h"
#include "WireBytes.h"


const char kHandshake[] = "TRTPHOTL\0\1\0\2";
const char kHandshakeReply[] = "TRTP\0\0\0\0";


/*!	A client, the log of what it posts and a server on 127.0.0.1. Whatever was interposed is let go
	after the client and its threads. A test whose own things are called there ends the client
	before those go.
*/
class ClientTest : public testing::Test {
public:
	ClientTest();
	~ClientTest() override;

protected:
	// Deletes the client, waits for the threads that it leaves behind, and lets every call through
	// again.
	void EndClient();

	void Connect(const char* login = "", const char* password = "", const char* nick = "Ann",
		uint16 icon = 137);
	// The server's side of it, up to its reply.
	void AcceptHandshake();
	// Connects and accepts up to the login, which it returns.
	std::string ShakeHands();
	// The same, answers the login and takes what is posted of it.
	void LogIn();
	// Says on the client's side that nothing more comes from what the server has sent so far, by a
	// mark behind it.
	void ExpectNothingPosted();

	void ExpectSent(const std::string& transaction);
	void ExpectPosted(const std::string& message);
	// Connects to where the text of the failure is expected.
	void ExpectFailure(const std::string& text);

	static std::string Chat(const std::string& text);

public:
	std::unique_ptr<RawServer> server;
	MessageRecorder* log;
	std::unique_ptr<HotlineClient> client;

private:
	size_t fThreads;
};


#endif // CLIENT_FIXTURE_H
