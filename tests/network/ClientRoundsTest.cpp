/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <arpa/inet.h>
#include <atomic>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <netinet/in.h>
#include <random>
#include <string>
#include <thread>
#include <unistd.h>
#include <utility>

#include "CheckingServer.h"
#include "ClientFixture.h"
#include "HotlineClient.h"
#include "Interposed.h"
#include "MessageRecorder.h"
#include "ProcessCounts.h"
#include "WaitFor.h"


static const int kSuites = 4;
static const uint32 kRounds = 500;
// As long as the longest text that is sent.
static const size_t kMaxText = 65535;
static const int kSmallSendBuffer = 8192;
// The server's and the logs'.
static const size_t kOwnThreads = 3;


/*!	A thread that sends requests of every kind, one after the other, until it is deleted. Its texts
	are made of one letter.
*/
class Requester {
public:
	// Both are borrowed. A talker's texts are long, others' hardly ever.
	Requester(HotlineClient* client, CheckingServer* server, uint32 seed, char letter,
		bool isTalker);
	Requester(const Requester&) = delete;
	~Requester();

	Requester& operator=(const Requester&) = delete;

private:
	void _Send();
	const char* _Text();

	HotlineClient* const fClient;
	std::mt19937 fRandom;
	const std::string fLetters;
	const uint32 fLongTexts;
	std::atomic<bool> fStops;
	std::thread fThread;
};


Requester::Requester(HotlineClient* client, CheckingServer* server, uint32 seed, char letter,
	bool isTalker)
	: fClient(client),
	  fRandom(seed),
	  fLetters(kMaxText, letter),
	  fLongTexts(isTalker ? 1 : 100),
	  fStops(false)
{
	fThread = std::thread([this, server] {
		while (!fStops) {
			_Send();
			server->Tick();
			// Most requests end at once while there is no connection, and others have to make one.
			std::this_thread::yield();
		}
	});
}


Requester::~Requester()
{
	fStops = true;
	fThread.join();
}


void
Requester::_Send()
{
	const char* name = fLetters.c_str() + kMaxText - fRandom() % 16;
	const std::string folder = std::string(name) + "/" + name;
	const uint16 number = static_cast<uint16>(fRandom() % 100);
	switch (fRandom() % 12) {
		case 0:
		case 1:
			fClient->SendChat(_Text());
			break;
		case 2:
		case 3:
			fClient->SendPrivateMsg(number, _Text());
			break;
		case 4:
			fClient->RequestUserList();
			break;
		case 5:
			fClient->ChangeNickAndIcon(name, number);
			break;
		case 6:
			fClient->GetUserInfo(number);
			break;
		case 7:
			fClient->RequestFileList(number % 2 == 0 ? folder.c_str() : NULL);
			break;
		case 8:
			fClient->RequestDownload(folder.c_str(), name);
			break;
		case 9:
			fClient->RequestUpload(folder.c_str(), name, number, "file");
			break;
		case 10:
			fClient->RequestBanner();
			break;
		case 11:
			fClient->SendAgreed(name, number);
			break;
	}
}


const char*
Requester::_Text()
{
	const size_t limit = fRandom() % fLongTexts == 0 ? kMaxText : 40;
	return fLetters.c_str() + kMaxText - fRandom() % (limit + 1);
}


// #pragma mark -


/*!	What clients have posted, by kind. */
struct PostedCounts {
	size_t connected = 0;
	size_t failed = 0;
	size_t loggedIn = 0;
	size_t disconnected = 0;
	size_t others = 0;

	size_t Outcomes() const { return connected + failed; }
	// Nobody is logged in, or disconnected, more often than connected.
	bool IsSound() const { return loggedIn <= connected && disconnected <= connected; }

	void Add(const BMessage& message);
};


void
PostedCounts::Add(const BMessage& message)
{
	switch (message.what) {
		case kHLConnected:
			connected++;
			break;
		case kHLConnectFailed:
			failed++;
			break;
		case kHLLoggedIn:
			loggedIn++;
			break;
		case kHLDisconnected:
			disconnected++;
			break;
		default:
			others++;
			break;
	}
}


/*!	\return How many attempts to connect have had their end told, one way or the other. */
static size_t
count_outcomes(MessageRecorder* log)
{
	PostedCounts counts;
	for (const BMessage& message : log->Messages())
		counts.Add(message);
	return counts.Outcomes();
}


// #pragma mark -


/*!	A client's life by chance, many times over: its owner connects, disconnects and asks, two
	threads send requests, and it is deleted at any moment. The server judges what it gets, the
	target what is posted.
*/
class ClientRoundsTest : public testing::TestWithParam<int> {
public:
	ClientRoundsTest();
	~ClientRoundsTest() override;

protected:
	void Round(uint32 seed);
	// Says that the rounds so far have met what they are about.
	void ExpectVariety(size_t rounds) const;

private:
	void _Act(HotlineClient* client, MessageRecorder* log);
	void _Connect(HotlineClient* client, MessageRecorder* log, uint16 port, bool waits);
	void _Ask(const HotlineClient* client) const;
	uint32 _Number(uint32 limit) { return static_cast<uint32>(fRandom() % limit); }

	const size_t fDescriptors;
	// With the test's own.
	size_t fThreads;
	std::unique_ptr<CheckingServer> fServer;
	std::mt19937 fRandom;
	// Taken in turn, so that a late notification has another client's whole life to come.
	RecorderOwner fLogs[2];
	// Bound, but nobody listens there.
	int fRefusing;
	uint16 fRefusingPort;
	// In all rounds.
	PostedCounts fPosted;
	std::atomic<size_t> fSockets;
	// Those that send what did not go out at once.
	std::atomic<size_t> fSendThreads;
};


ClientRoundsTest::ClientRoundsTest()
	: fDescriptors(count_descriptors()),
	  fThreads(0),
	  fServer(new CheckingServer),
	  fRefusing(socket(AF_INET, SOCK_STREAM, 0)),
	  fRefusingPort(0),
	  fSockets(0),
	  fSendThreads(0)
{
	for (RecorderOwner& log : fLogs)
		log.reset(new MessageRecorder);
	fThreads = count_threads();

	sockaddr_in address = {};
	address.sin_family = AF_INET;
	address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
	socklen_t length = sizeof(address);
	EXPECT_EQ(bind(fRefusing, reinterpret_cast<sockaddr*>(&address), length), 0);
	EXPECT_EQ(getsockname(fRefusing, reinterpret_cast<sockaddr*>(&address), &length), 0);
	fRefusingPort = ntohs(address.sin_port);

	// Every second socket has little room for what is sent.
	Interposed::socket = [this](int family, int type, int protocol) {
		const int number = Interposed::RealSocket(family, type, protocol);
		if (fSockets++ % 2 == 0)
			Interposed::RealSetOption(number, SOL_SOCKET, SO_SNDBUF, &kSmallSendBuffer,
				sizeof(kSmallSendBuffer));
		return number;
	};
	Interposed::spawn = [this](thread_func function, const char* name, int32 priority, void* data) {
		if (strcmp(name, "HL:Send") == 0)
			fSendThreads++;
		return Interposed::RealSpawn(function, name, priority, data);
	};
}


ClientRoundsTest::~ClientRoundsTest()
{
	Interposed::Clear();
	for (RecorderOwner& log : fLogs)
		log.reset();
	fServer.reset();
	close(fRefusing);

	// A thread that has been waited for leaves the system's list a moment later.
	EXPECT_SOON(count_threads() <= fThreads - kOwnThreads);
	EXPECT_EQ(count_descriptors(), fDescriptors);
}


void
ClientRoundsTest::Round(uint32 seed)
{
	fRandom.seed(seed);
	fServer->Begin(seed);
	MessageRecorder* log = fLogs[seed % 2].get();
	EXPECT_EQ(0, log->CountMessages()) << "from a client that was deleted";
	uint32 connection = 0;
	{
		HotlineClient client(log);
		connection = client.Connection();
		// Talkers who are listened to long enough say more than a client keeps for a server that
		// does not read.
		const bool areTalkers = _Number(8) == 0;
		const uint32 patience = areTalkers ? 600 : 150;
		const Requester first(&client, fServer.get(), _Number(UINT32_MAX), 'a', areTalkers);
		const Requester second(&client, fServer.get(), _Number(UINT32_MAX), 'b', areTalkers);
		for (uint32 i = 1 + _Number(6); i > 0; i--) {
			_Act(&client, log);
			EXPECT_TRUE(fServer->WaitForTicks(_Number(2) * _Number(patience)));
		}
	}

	PostedCounts posted;
	for (const BMessage& message : log->Messages()) {
		posted.Add(message);
		fPosted.Add(message);
		EXPECT_TRUE(posted.IsSound()) << MessageRecorder::Describe(&message);
	}
	for (const uint32 number : log->Connections())
		EXPECT_EQ(connection, number);
	log->Clear();
	EXPECT_TRUE(fServer->WaitForEnd());
	EXPECT_TRUE(fServer->Complaint().empty()) << fServer->Complaint();
}


void
ClientRoundsTest::ExpectVariety(size_t rounds) const
{
	const ServedCounts served = fServer->Counts();
	EXPECT_GT(served.connections, rounds / 2);
	EXPECT_GT(served.lateHandshakes, rounds / 4);
	EXPECT_GT(served.logins, rounds / 4);
	EXPECT_GT(served.requests, rounds * 4);
	const std::pair<const char*, size_t> happened[] = {{"replies", served.replies},
		{"pauses of the server", served.pauses}, {"connections that it closed", served.closed},
		{"connections that it reset", served.reset},
		{"ends within a transaction", served.unfinished}, {"threads that send", fSendThreads},
		{"failed attempts", fPosted.failed}, {"logins", fPosted.loggedIn},
		{"lost connections", fPosted.disconnected}, {"other notifications", fPosted.others}};
	for (const auto& [name, count] : happened)
		EXPECT_GT(count, 0u) << name;
}


/*!	Something that the client's owner does. */
void
ClientRoundsTest::_Act(HotlineClient* client, MessageRecorder* log)
{
	switch (_Number(8)) {
		case 0:
		case 1:
			_Connect(client, log, fServer->Port(), true);
			break;
		case 2:
			_Connect(client, log, fServer->Port(), false);
			break;
		case 3:
			_Connect(client, log, fServer->Port(), false);
			_Connect(client, log, fServer->Port(), _Number(2) == 0);
			break;
		case 4:
			_Connect(client, log, fRefusingPort, _Number(2) == 0);
			break;
		case 5:
		case 6:
			client->Disconnect();
			break;
		case 7:
			_Ask(client);
			break;
	}
}


/*!	\param waits Until the client has told how it went: what nobody gives up comes to an end. */
void
ClientRoundsTest::_Connect(HotlineClient* client, MessageRecorder* log, uint16 port, bool waits)
{
	const size_t outcomes = count_outcomes(log);
	client->Connect("127.0.0.1", port, "me", "secret", "aaa", 137);
	if (waits) {
		EXPECT_SOON(count_outcomes(log) > outcomes);
	}
}


void
ClientRoundsTest::_Ask(const HotlineClient* client) const
{
	const std::string name = client->ServerName();
	EXPECT_TRUE(name.empty() || name == "Harbour") << name;
	const std::string address = client->Address();
	EXPECT_TRUE(address.empty() || address == "127.0.0.1") << address;
	EXPECT_TRUE(client->Port() == 0 || client->Port() == fServer->Port()) << client->Port();
	EXPECT_TRUE(client->ServerVersion() == 0 || client->ServerVersion() == 190);
	static_cast<void>(client->IsConnected());
}


TEST_P(ClientRoundsTest, WhateverIsDone_WhatIsSentAndPostedStaysSound)
{
	for (uint32 i = 0; i < kRounds; i++) {
		const uint32 seed = static_cast<uint32>(GetParam()) * kRounds + i;
		SCOPED_TRACE("seed " + std::to_string(seed));
		Round(seed);
		if (HasFailure())
			return;
	}
	ExpectVariety(kRounds);
}


INSTANTIATE_TEST_SUITE_P(Seeds, ClientRoundsTest, testing::Range(0, kSuites));
