/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef QUIET_SERVER_H
#define QUIET_SERVER_H


#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "DemoServer.h"
#include "RawClient.h"


/*!	A server that says nothing unasked, so that every byte that arrives is one that a test expects.
	Residents answer at once if the test lets them.
*/
class QuietServer : public testing::Test {
protected:
	QuietServer()
	{
		fOptions.welcome = false;
		fOptions.banner = false;
		fOptions.life = false;
		fOptions.answers = false;
		fOptions.answerDelay = 0;
		fOptions.users = 3;
	}

	// Starts the server with the options as they are by now.
	uint16_t Start()
	{
		fServer = std::make_unique<demo::DemoServer>(fOptions);
		EXPECT_TRUE(fServer->Start());
		return fServer->Port();
	}

	// Somebody who has joined: the next request is number 3, and the next notice too when nobody
	// else is there. Starts the server if that does not run yet.
	std::unique_ptr<RawClient> Join(const std::string& nick, uint16_t icon = 128)
	{
		auto client = std::make_unique<RawClient>(fServer != NULL ? fServer->Port() : Start());
		EXPECT_NE(0, client->Join(nick, icon));
		return client;
	}

	// The same up to the agreement, which has been received.
	std::unique_ptr<RawClient> LogIn(const std::string& nick, uint16_t icon)
	{
		auto client = std::make_unique<RawClient>(fServer != NULL ? fServer->Port() : Start());
		client->LogIn(nick, icon);
		client->ReceiveMessageOfType(109);
		return client;
	}

	demo::ServerOptions fOptions;
	std::unique_ptr<demo::DemoServer> fServer;
};


#endif // QUIET_SERVER_H
