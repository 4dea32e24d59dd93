/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <chrono>

#include "ClientFixture.h"


typedef ClientTest ClientSilenceTest;


TEST_F(ClientSilenceTest, ServerThatSaysNothing_IsGivenTenSeconds)
{
	const auto begin = std::chrono::steady_clock::now();
	Connect();
	ASSERT_TRUE(server->Accept());
	EXPECT_EQ(server->Read(12), std::string(kHandshake, 12));
	// The server's own patience ends before the client's: 10 seconds later nothing was posted yet,
	// or just so.
	EXPECT_EQ(server->ReadToEnd(), "");
	ExpectFailure("Server did not respond to handshake");
	EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(9900));
	EXPECT_TRUE(server->WaitForEnd());
}
