/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ClientFixture.h"

#include "Interposed.h"
#include "WaitFor.h"


ClientTest::ClientTest()
	: server(new RawServer),
	  log(new MessageRecorder)
{
	fThreads = count_threads();
	client.reset(new HotlineClient(log));
}


ClientTest::~ClientTest()
{
	EndClient();
	if (log->Lock())
		log->Quit();
	// One that has been waited for leaves the system's list a moment later, and the next test may
	// count.
	EXPECT_SOON(count_threads() < fThreads);
}


void
ClientTest::EndClient()
{
	client.reset();
	EXPECT_SOON(count_threads() <= fThreads);
	Interposed::Clear();
}


void
ClientTest::Connect(const char* login, const char* password, const char* nick, uint16 icon)
{
	client->Connect("127.0.0.1", server->Port(), login, password, nick, icon);
}


void
ClientTest::AcceptHandshake()
{
	ASSERT_TRUE(server->Accept());
	EXPECT_EQ(server->Read(12), std::string(kHandshake, 12));
	server->Send(std::string(kHandshakeReply, 8));
}


std::string
ClientTest::ShakeHands()
{
	Connect();
	AcceptHandshake();
	std::string login = server->ReadTransaction();
	ExpectPosted("HLcn");
	return login;
}


void
ClientTest::LogIn()
{
	ShakeHands();
	server->Send(
		wire_transaction(0x10000, 1, wire_param(160, wire16(190)) + wire_param(162, "Harbour")));
	ExpectSent(wire_transaction(300, 2, ""));
	ExpectPosted("HLsi serverName=CSTR Harbour version=USHT 190");
	ExpectPosted("HLli");
}


void
ClientTest::ExpectNothingPosted()
{
	server->Send(wire_transaction(355, 0, wire_param(101, "the mark")));
	ExpectPosted("HLbc text=CSTR the mark");
}


void
ClientTest::ExpectSent(const std::string& transaction)
{
	EXPECT_EQ(wire_dump(server->Read(transaction.size())), wire_dump(transaction));
}


void
ClientTest::ExpectPosted(const std::string& message)
{
	EXPECT_EQ(log->Next(), message);
}


void
ClientTest::ExpectFailure(const std::string& text)
{
	ExpectPosted("HLcf error=CSTR " + text);
	EXPECT_FALSE(client->IsConnected());
}


std::string
ClientTest::Chat(const std::string& text)
{
	return wire_transaction(106, 0, wire_param(101, text));
}
