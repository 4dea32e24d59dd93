/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <chrono>
#include <memory>
#include <sys/socket.h>

#include "QuietServer.h"
#include "Server.h"


class HostileClientTest : public QuietServer {
protected:
	// Whether the server still does what it should for somebody else.
	void ExpectAlive()
	{
		RawClient client(fServer->Port());
		client.Join("Witness");
		client.Type("alive");
		EXPECT_EQ(WireTransaction(client.ReceiveMessageOfType(106)).Field(101), "Witness:  alive");
	}
};


TEST_F(HostileClientTest, AnnouncesTooMuch_RefusedAndDropped)
{
	RawClient client(Start());
	client.ShakeHands();
	client.Send(wire32(107) + wire32(1) + wire32(0) + wire32(0xffffffff) + wire32(0xffffffff));
	EXPECT_EQ(WireTransaction(client.ReceiveMessage()).error, 1u);
	EXPECT_TRUE(client.ReceiveEnd());
	ExpectAlive();
}


TEST_F(HostileClientTest, LeavesInTheMiddle_WhereverThatIs)
{
	Start();
	std::string bytes = std::string("TRTPHOTL\x00\x01\x00\x02", 12)
		+ Message(107, 1,
			{wire_param(104, wire16(137)), wire_param(102, "Half"), wire_param(160, wire16(151))})
		+ Message(121, 2, {wire_param(102, "Half")}) + Message(105, 3, {wire_param(101, "said")});
	for (size_t size = 0; size <= bytes.size(); size++) {
		RawClient client(fServer->Port());
		client.Send(bytes.substr(0, size));
	}
	ExpectAlive();
}


TEST_F(HostileClientTest, Noise_Survived)
{
	Start();
	uint32_t noise = 12345;
	for (int i = 0; i < 50; i++) {
		RawClient client(fServer->Port());
		client.Join("Noisy");
		for (int j = 0; j < 20; j++) {
			std::string fields(noise % 64, 0);
			for (char& byte : fields) {
				noise = noise * 1664525 + 1013904223;
				byte = static_cast<char>(noise >> 24);
			}
			noise = noise * 1664525 + 1013904223;
			client.Request(noise % 400, {fields});
		}
	}
	ExpectAlive();
}


TEST_F(HostileClientTest, NeverReads_LosesTheConnectionAndNothingElse)
{
	const auto deaf = Join("Deaf");
	const auto loud = Join("Loud");
	// More than the line and the server's patience hold together; buffers grow to some megabytes.
	std::string text(60000, 'x');
	for (int i = 0; i < 400; i++) {
		loud->Type(text);
		std::string message = loud->ReceiveMessage();
		if (WireTransaction(message).type == 302)
			return;
	}
	FAIL() << "the one who does not read is still there";
}


TEST_F(HostileClientTest, AsksWithoutReading_NotHeardUntilItReads)
{
	fOptions.users = 2000;
	const auto client = Join("Greedy");
	const int count = 200;
	std::string requests;
	for (int i = 0; i < count; i++)
		requests += Message(300, static_cast<uint32_t>(i), {});
	client->Send(requests);
	ExpectAlive();

	int answers = 0;
	while (answers < count) {
		std::string message = client->ReceiveMessageOfType(0x00010000);
		ASSERT_EQ(WireTransaction(message).id, static_cast<uint32_t>(answers))
			<< wire_dump(message);
		answers++;
	}
}


TEST_F(HostileClientTest, AsksForEverWithoutReading_WaitsInTheNetwork)
{
	fOptions.users = 5000;
	const auto greedy = Join("Greedy");
	std::string requests;
	for (uint32_t i = 0; i < 10000; i++)
		requests += Message(300, i, {});

	// Full is full when the server has been round for somebody else and still took nothing.
	size_t taken = 0;
	size_t rounds = 0;
	while (rounds < 10 && taken < 64 * 1024 * 1024) {
		ssize_t sent = send(greedy->Socket(), requests.data(), requests.size(),
			MSG_DONTWAIT | MSG_NOSIGNAL);
		if (sent > 0) {
			taken += static_cast<size_t>(sent);
			rounds = 0;
		} else {
			ExpectAlive();
			rounds++;
		}
	}
	EXPECT_LT(taken, static_cast<size_t>(64 * 1024 * 1024));
}


TEST_F(HostileClientTest, RefusedWhileItTalks_StillReadsWhy)
{
	RawClient client(Start());
	client.ShakeHands();
	std::string login = Message(107, 1, {wire_param(105, Encoded("keeper"))});
	EXPECT_TRUE(client.Send(login + std::string(10000000, 'x')));
	EXPECT_EQ(WireTransaction(client.ReceiveMessage()).error, 1u);
	EXPECT_TRUE(client.ReceiveEnd());
}


TEST_F(HostileClientTest, FloodNobodyReads_CostsNothing)
{
	const auto deaf = Join("Deaf");
	deaf->Type("/flood 100000000");
	deaf->ReceiveMessageOfType(106);
	ExpectAlive();
}


TEST_F(HostileClientTest, TooManyConnections_TheRestTurnedAway)
{
	Start();
	std::vector<std::unique_ptr<RawClient>> clients;
	for (size_t i = 0; i < demo::Server::kMaxSessions; i++) {
		clients.push_back(std::make_unique<RawClient>(fServer->Port()));
		ASSERT_TRUE(clients.back()->ShakeHands()) << i;
	}
	RawClient late(fServer->Port());
	EXPECT_FALSE(late.ShakeHands());

	clients.clear();
	// The server may meet the next one before it has noticed that the others are gone.
	auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
	bool isServed = false;
	while (!isServed && std::chrono::steady_clock::now() < deadline)
		isServed = RawClient(fServer->Port()).ShakeHands();
	EXPECT_TRUE(isServed);
}


TEST_F(HostileClientTest, ManyClients_EachHearsEverybody)
{
	Start();
	const size_t count = 60;
	std::vector<std::unique_ptr<RawClient>> clients;
	for (size_t i = 0; i < count; i++) {
		clients.push_back(std::make_unique<RawClient>(fServer->Port()));
		ASSERT_NE(clients.back()->Join("Client " + std::to_string(i)), 0) << i;
	}
	for (const auto& client : clients)
		client->Type("hello");
	for (const auto& client : clients) {
		for (size_t i = 0; i < count; i++)
			ASSERT_EQ(WireTransaction(client->ReceiveMessageOfType(106)).type, 106u);
	}
}
