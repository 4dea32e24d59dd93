/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <functional>
#include <string>
#include <thread>

#include "ClientFixture.h"
#include "Interposed.h"
#include "WaitFor.h"
#include "WireBytes.h"


/*!	A server that lets bytes pile up: what does not go out at once is waited for by wait_for_thread(). */
class ClientSlowServerTest : public ClientTest {
protected:
	ClientSlowServerTest();
	~ClientSlowServerTest() override;

	static std::string Chat(uint32 id, const std::string& text);

	// How many bytes each attempt that does not want to wait gets rid of before there is no room; no limit below 0.
	std::atomic<int> fRoom;
	std::atomic<int> fWaits;
	// Called with every wait.
	std::function<void()> fOnWait;
};


ClientSlowServerTest::ClientSlowServerTest()
	: fRoom(-1),
	  fWaits(0)
{
	Interposed::send = [this](int socket, const void* data, size_t size, int flags) -> ssize_t {
		if ((flags & MSG_DONTWAIT) == 0 || fRoom < 0)
			return Interposed::RealSend(socket, data, size, flags);
		const size_t fitting = std::min(size, static_cast<size_t>(fRoom));
		fRoom -= static_cast<int>(fitting);
		if (fitting > 0)
			return Interposed::RealSend(socket, data, fitting, flags);
		errno = EAGAIN;
		return -1;
	};
	Interposed::wait = [this](thread_id) {
		fWaits++;
		if (fOnWait)
			fOnWait();
	};
}


ClientSlowServerTest::~ClientSlowServerTest()
{
	fOnWait = nullptr;
	client.reset();
}


std::string
ClientSlowServerTest::Chat(uint32 id, const std::string& text)
{
	return wire_transaction(105, id, wire_param(101, text));
}


TEST_F(ClientSlowServerTest, RoomForEverything_IsNoReasonToWait)
{
	LogIn();
	client->SendChat("hello");
	ExpectSent(Chat(3, "hello"));
	EXPECT_EQ(fWaits, 0);
}


TEST_F(ClientSlowServerTest, NoRoomAtAnyByte_ArrivesWhole)
{
	LogIn();
	const int size = static_cast<int>(Chat(3, "hello").size());
	for (int i = 0; i < size; i++) {
		SCOPED_TRACE(i);
		fRoom = i;
		client->SendChat("hello");
		ExpectSent(Chat(3 + static_cast<uint32>(i), "hello"));
		EXPECT_EQ(fWaits, i + 1);
	}
	fRoom = -1;
}


TEST_F(ClientSlowServerTest, ServerThatBeginsToReadLate_GetsEverythingInOrder)
{
	const uint32 count = 300;
	std::string expected;
	std::string received;
	std::thread reader;
	LogIn();
	for (uint32 i = 0; i < count; i++)
		expected += Chat(3 + i, std::string(40000, static_cast<char>('a' + i % 26)));
	fOnWait = [&] {
		if (fWaits == 1) {
			reader = std::thread([&] {
				received = server->Read(expected.size());
			});
		}
	};
	for (uint32 i = 0; i < count; i++)
		client->SendChat(std::string(40000, static_cast<char>('a' + i % 26)).c_str());
	ASSERT_TRUE(reader.joinable());
	reader.join();
	EXPECT_TRUE(received == expected);
	EXPECT_TRUE(client->IsConnected());
}


TEST_F(ClientSlowServerTest, ThreadThatFindsAnotherSending_WaitsToo)
{
	// The first sends a part of its transaction, and the rest only when the second is waiting for its turn.
	LogIn();
	fRoom = 10;
	std::thread second;
	fOnWait = [&] {
		if (fWaits > 1)
			return;
		second = std::thread([this] {
			client->RequestUserList();
		});
		EXPECT_TRUE(WaitFor([this] {
			return fWaits == 2;
		}));
	};
	client->SendChat("hello");
	ASSERT_TRUE(second.joinable());
	second.join();
	fRoom = -1;
	ExpectSent(Chat(3, "hello"));
	ExpectSent(wire_transaction(300, 4, ""));
	EXPECT_EQ(fWaits, 2);
}


TEST_F(ClientSlowServerTest, NoThreadToBeHad_WaitsByItself)
{
	std::atomic<bool> refuses(false);
	Interposed::spawn = [&](thread_func function, const char* name, int32 priority, void* data) {
		return refuses ? B_NO_MORE_THREADS : Interposed::RealSpawn(function, name, priority, data);
	};
	LogIn();
	refuses = true;
	fRoom = 7;
	client->SendChat("hello");
	refuses = false;
	fRoom = -1;
	ExpectSent(Chat(3, "hello"));
	EXPECT_EQ(fWaits, 0);
	client.reset();
}


TEST_F(ClientSlowServerTest, DisconnectWhileSending_EndsTheWait)
{
	LogIn();
	std::thread other;
	fOnWait = [&] {
		if (fWaits == 1) {
			other = std::thread([this] {
				client->Disconnect();
			});
		}
	};
	for (int i = 0; i < 300 && client->IsConnected(); i++)
		client->SendChat(std::string(40000, 'x').c_str());
	ASSERT_TRUE(other.joinable());
	other.join();
	EXPECT_FALSE(client->IsConnected());
}
