/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef QUIET_SERVER_H
#define QUIET_SERVER_H


#include "DemoServer.h"

#include <gtest/gtest.h>


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

	//! Starts the server with the options as they are by now.
	uint16_t Start()
	{
		fServer = std::make_unique<demo::DemoServer>(fOptions);
		EXPECT_TRUE(fServer->Start());
		return fServer->Port();
	}

	demo::ServerOptions fOptions;
	std::unique_ptr<demo::DemoServer> fServer;
};


#endif // QUIET_SERVER_H
