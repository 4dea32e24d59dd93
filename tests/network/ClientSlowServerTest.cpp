/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <future>
#include <string>
#include <thread>
#include <vector>

#include "ClientFixture.h"
#include "Interposed.h"
#include "WaitFor.h"
#include "WireBytes.h"


/*!	A server that lets bytes pile up: what does not go out at once is left to a thread, and nobody
	waits for it.
*/
class ClientSlowServerTest : public ClientTest {
protected:
	ClientSlowServerTest();
	~ClientSlowServerTest() override;

	static std::string Chat(uint32 id, const std::string& text);
	static std::string TextOf(uint32 id);

	// How many bytes the attempts that do not wait get rid of before there is no room; no limit
	// below 0.
	std::atomic<int> fRoom;
	// What becomes of a send that may wait, once the test lets it go on: the real thing, or this
	// error.
	std::promise<void> fGate;
	std::atomic<int> fError;
	// The threads that send.
	std::atomic<int> fThreads;
	std::atomic<bool> fHasNoThreads;

private:
	std::shared_future<void> fOpened;
};


ClientSlowServerTest::ClientSlowServerTest()
	: fRoom(-1),
	  fError(0),
	  fThreads(0),
	  fHasNoThreads(false),
	  fOpened(fGate.get_future().share())
{
	Interposed::send = [this](int socket, const void* data, size_t size, int flags) -> ssize_t {
		if ((flags & MSG_DONTWAIT) == 0) {
			if (fRoom >= 0)
				fOpened.wait();
			errno = fError;
			return fError != 0 ? -1 : Interposed::RealSend(socket, data, size, flags);
		}
		if (fRoom < 0)
			return Interposed::RealSend(socket, data, size, flags);
		const size_t fitting = std::min(size, static_cast<size_t>(fRoom));
		fRoom -= static_cast<int>(fitting);
		if (fitting > 0)
			return Interposed::RealSend(socket, data, fitting, flags);
		errno = EAGAIN;
		return -1;
	};
	Interposed::spawn = [this](thread_func function, const char* name, int32 priority, void* data) {
		if (std::string(name) != "HL:Send")
			return Interposed::RealSpawn(function, name, priority, data);
		fThreads++;
		return fHasNoThreads ? B_NO_MORE_THREADS
							 : Interposed::RealSpawn(function, name, priority, data);
	};
}


ClientSlowServerTest::~ClientSlowServerTest()
{
	EndClient();
}


std::string
ClientSlowServerTest::Chat(uint32 id, const std::string& text)
{
	return wire_transaction(105, id, wire_param(101, text));
}


std::string
ClientSlowServerTest::TextOf(uint32 id)
{
	return std::string(40000, static_cast<char>('a' + id % 26));
}


TEST_F(ClientSlowServerTest, RoomForEverything_TakesNoThread)
{
	LogIn();
	client->SendChat("hello");
	ExpectSent(Chat(3, "hello"));
	EXPECT_EQ(fThreads, 0);
}


TEST_F(ClientSlowServerTest, NoRoomAtAnyByte_ArrivesWhole)
{
	fGate.set_value();
	LogIn();
	const int size = static_cast<int>(Chat(3, "hello").size());
	for (int i = 0; i < size; i++) {
		SCOPED_TRACE(i);
		fRoom = i;
		client->SendChat("hello");
		ExpectSent(Chat(3 + static_cast<uint32>(i), "hello"));
	}
	EXPECT_GT(fThreads, 0);
}


TEST_F(ClientSlowServerTest, ServerThatBeginsToReadLate_GetsEverythingInOrder)
{
	const uint32 kCount = 25;
	LogIn();
	fRoom = 50;
	std::string expected;
	for (uint32 id = 3; id < 3 + kCount; id++) {
		client->SendChat(TextOf(id).c_str());
		expected += Chat(id, TextOf(id));
	}
	fGate.set_value();
	EXPECT_TRUE(server->Read(expected.size()) == expected);
	EXPECT_TRUE(client->IsConnected());
	EXPECT_EQ(fThreads, 1);

	// When everything has gone, the next one goes at once again.
	fRoom = -1;
	client->SendChat("hello");
	ExpectSent(Chat(3 + kCount, "hello"));
}


TEST_F(ClientSlowServerTest, MoreThanAMebibyteWaiting_IsALostConnection)
{
	LogIn();
	fRoom = 0;
	for (uint32 i = 0; i < 26; i++)
		client->SendChat(TextOf(i).c_str());
	EXPECT_TRUE(client->IsConnected());
	client->SendChat(TextOf(26).c_str());
	ExpectPosted("HLdc");
	EXPECT_FALSE(client->IsConnected());
	fGate.set_value();
	// Nothing of what had to wait goes out after that.
	EXPECT_EQ(server->ReadToEnd(), "");
}


TEST_F(ClientSlowServerTest, SendThatTimesOut_IsALostConnection)
{
	LogIn();
	fError = EAGAIN;
	fRoom = 10;
	client->SendChat("hello");
	fGate.set_value();
	ExpectPosted("HLdc");
	EXPECT_FALSE(client->IsConnected());
	EXPECT_EQ(server->ReadToEnd(), Chat(3, "hello").substr(0, 10));
}


TEST_F(ClientSlowServerTest, NoThreadToBeHad_IsALostConnection)
{
	LogIn();
	fHasNoThreads = true;
	fRoom = 7;
	client->SendChat("hello");
	ExpectPosted("HLdc");
	EXPECT_EQ(server->ReadToEnd(), Chat(3, "hello").substr(0, 7));
}


TEST_F(ClientSlowServerTest, TwoThreads_DoNotMixTheirTransactions)
{
	const uint32 kCount = 200;
	fGate.set_value();
	LogIn();
	fRoom = 5000;
	const auto send = [this](char letter) {
		for (uint32 i = 0; i < kCount; i++)
			client->SendChat(std::string(100, letter).c_str());
	};
	std::thread first(send, 'a');
	std::thread second(send, 'b');
	first.join();
	second.join();
	for (uint32 id = 3; id < 3 + 2 * kCount; id++) {
		SCOPED_TRACE(id);
		const std::string sent = server->ReadTransaction();
		ASSERT_FALSE(sent.empty());
		ASSERT_EQ(wire_dump(sent), wire_dump(Chat(id, std::string(100, sent.back()))));
	}
}


TEST_F(ClientSlowServerTest, DisconnectWhileBytesWait_EndsAtOnce)
{
	LogIn();
	fRoom = 0;
	client->SendChat("hello");
	client->Disconnect();
	EXPECT_FALSE(client->IsConnected());
	// The server hears of it although the thread has not come to send.
	EXPECT_TRUE(server->WaitForEnd());
	fGate.set_value();
}


TEST_F(ClientSlowServerTest, NewConnection_GetsNothingThatWaitedForTheOldOne)
{
	LogIn();
	fRoom = 0;
	client->SendChat("for the old one");
	fRoom = -1;
	client->Disconnect();
	LogIn();
	fGate.set_value();
	client->SendChat("hello");
	ExpectSent(Chat(3, "hello"));
}
