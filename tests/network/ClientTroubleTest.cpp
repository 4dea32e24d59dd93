/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <future>
#include <sys/time.h>
#include <thread>
#include <vector>

#include "ClientFixture.h"
#include "Gate.h"
#include "Interposed.h"
#include "WaitFor.h"


typedef ClientTest ClientLossTest;
typedef ClientTest ClientSendTest;
typedef ClientTest ClientMemoryTest;


// #pragma mark - Loss


TEST_F(ClientLossTest, ServerThatHangsUp_IsLost)
{
	LogIn();
	server->Hangup();
	ExpectPosted("HLdc");
	EXPECT_FALSE(client->IsConnected());
}


TEST_F(ClientLossTest, ServerThatResets_IsLost)
{
	LogIn();
	server->Reset();
	ExpectPosted("HLdc");
}


TEST_F(ClientLossTest, HangUpInTheMiddle_LosesOnlyTheHalf)
{
	const std::string bytes = Chat("hello");
	for (size_t size = 1; size < bytes.size(); size++) {
		SCOPED_TRACE(size);
		ShakeHands();
		server->Send(Chat("whole") + bytes.substr(0, size));
		server->Hangup();
		ExpectPosted("HLch text=CSTR whole chatRef=ULNG 0");
		ExpectPosted("HLdc");
	}
}


TEST_F(ClientLossTest, TooLargeATransaction_EndsTheConnection)
{
	const uint32 limit = 16 * 1024 * 1024;
	for (const uint32 size : {limit + 1, 0x80000000u, 0xFFFFFFECu, 0xFFFFFFFFu}) {
		SCOPED_TRACE(size);
		ShakeHands();
		server->Send(Chat("before") + wire_header(106, 0, 0, size, size, 1));
		ExpectPosted("HLch text=CSTR before chatRef=ULNG 0");
		ExpectPosted("HLdc");
		EXPECT_FALSE(client->IsConnected());
		EXPECT_TRUE(server->WaitForEnd());
	}
}


TEST_F(ClientLossTest, LargestTransaction_IsRead)
{
	const uint32 limit = 16 * 1024 * 1024;
	ShakeHands();
	std::string bytes = wire_header(355, 0, 0, limit, limit, 1) + wire_param(101, "large");
	bytes.resize(22 + limit - 2, '\0');
	server->Send(bytes);
	ExpectPosted("HLbc text=CSTR large");
}


TEST_F(ClientMemoryTest, NoMemoryForATransaction_EndsTheConnection)
{
	Interposed::reallocate = [](void* block, size_t size) -> void* {
		return size == 22 + 12345 + 16 ? NULL : Interposed::RealReallocate(block, size);
	};
	ShakeHands();
	server->Send(Chat("before") + wire_header(106, 0, 0, 12347, 12347, 1));
	ExpectPosted("HLch text=CSTR before chatRef=ULNG 0");
	ExpectPosted("HLdc");
	EXPECT_TRUE(server->WaitForEnd());
}


TEST_F(ClientMemoryTest, NoMemoryAtAll_IsALoss)
{
	client.reset();
	// The first block of a size may be had by either call.
	Interposed::allocate = [](size_t size) -> void* {
		return size == 38 ? NULL : Interposed::RealAllocate(size);
	};
	Interposed::reallocate = [](void* block, size_t size) -> void* {
		return size == 38 ? NULL : Interposed::RealReallocate(block, size);
	};
	client.reset(new HotlineClient(log));
	ShakeHands();
	ExpectPosted("HLdc");
}


TEST_F(ClientMemoryTest, Block_HoldsOneTransactionAndShrinksBehindIt)
{
	ShakeHands();
	// Sixteen bytes more than the header and what follows it.
	const std::string text(1000, 'x');
	std::vector<size_t> sizes;
	Interposed::reallocate = [&](void* block, size_t size) {
		if (size == 22 + 4 + 1000 + 16 || size == 22 + 16)
			sizes.push_back(size);
		return Interposed::RealReallocate(block, size);
	};
	server->Send(Chat(text) + wire_transaction(106, 0, "") + Chat(text));
	ExpectPosted("HLch text=CSTR " + text + " chatRef=ULNG 0");
	ExpectPosted("HLch text=CSTR " + text + " chatRef=ULNG 0");
	client.reset();
	EXPECT_EQ(sizes, std::vector<size_t>({1042, 38, 1042, 38}));
}


TEST_F(ClientMemoryTest, BlockThatCannotShrink_StillDoes)
{
	Interposed::reallocate = [](void* block, size_t size) -> void* {
		return size == 38 && block != NULL ? NULL : Interposed::RealReallocate(block, size);
	};
	LogIn();
	for (const char* text : {"first", "the second", "3rd"}) {
		server->Send(Chat(text));
		ExpectPosted(std::string("HLch text=CSTR ") + text + " chatRef=ULNG 0");
	}
}


// #pragma mark - Sending


TEST_F(ClientSendTest, FailedSend_IsReportedAsLost)
{
	LogIn();
	Interposed::send = [](int, const void*, size_t, int) -> ssize_t {
		errno = EPIPE;
		return -1;
	};
	client->SendChat("lost");
	ExpectPosted("HLdc");
	EXPECT_TRUE(server->WaitForEnd());
}


TEST_F(ClientSendTest, HalfATransaction_IsNeverFollowedByAnother)
{
	LogIn();
	std::atomic<int> calls(0);
	Interposed::send = [&](int socket, const void* data, size_t size, int flags) -> ssize_t {
		// The first call sends three bytes, the second finds no room for more, the third runs into
		// the time-out.
		if (++calls == 1)
			return Interposed::RealSend(socket, data, std::min<size_t>(size, 3), flags);
		errno = EAGAIN;
		return calls <= 3 ? -1 : Interposed::RealSend(socket, data, size, flags);
	};
	client->SendChat("half");
	client->SendChat("never sent");
	client->RequestUserList();
	ExpectPosted("HLdc");
	EXPECT_EQ(server->ReadToEnd(), wire_transaction(105, 0, "").substr(0, 3));
	EXPECT_EQ(calls, 3);
}


TEST_F(ClientSendTest, TransactionsOfManyThreads_DoNotMix)
{
	LogIn();
	Interposed::send = [](int socket, const void* data, size_t size, int flags) {
		return Interposed::RealSend(socket, data, std::min<size_t>(size, 5), flags);
	};
	const int kThreads = 4;
	const int kLines = 50;
	std::vector<std::thread> threads;
	threads.reserve(kThreads);
	for (int i = 0; i < kThreads; i++) {
		threads.emplace_back([&, i] {
			const std::string text(20 + static_cast<size_t>(i), static_cast<char>('a' + i));
			for (int j = 0; j < kLines; j++)
				client->SendChat(text.c_str());
		});
	}

	std::vector<int> ids;
	for (int i = 0; i < kThreads * kLines; i++) {
		const std::string bytes = server->ReadTransaction();
		ASSERT_GE(bytes.size(), 27u);
		const std::string text = bytes.substr(26);
		EXPECT_EQ(text, std::string(20 + static_cast<size_t>(text[0] - 'a'), text[0]));
		ids.push_back((bytes[6] & 0xff) << 8 | (bytes[7] & 0xff));
	}
	for (std::thread& thread : threads)
		thread.join();
	std::sort(ids.begin(), ids.end());
	for (int i = 0; i < kThreads * kLines; i++)
		EXPECT_EQ(ids[static_cast<size_t>(i)], 3 + i);
}


TEST_F(ClientSendTest, NumberInUse_IsNotGivenToTheNextConnection)
{
	LogIn();
	Gate gate;
	std::atomic<int> usedSocket(-1);
	Interposed::send = [&](int socket, const void* data, size_t size, int flags) {
		int none = -1;
		usedSocket.compare_exchange_strong(none, socket);
		gate.Enter();
		return Interposed::RealSend(socket, data, size, flags);
	};
	std::thread sender([&] {
		client->SendChat("for the first server");
	});
	gate.WaitForArrival();

	// The user disconnects and connects again while another thread is inside of the call.
	client->Disconnect();
	RawServer other;
	client->Connect("127.0.0.1", other.Port(), "", "", "Ann", 137);
	ASSERT_TRUE(other.Accept());
	EXPECT_GE(fcntl(usedSocket, F_GETFD), 0);
	EXPECT_EQ(other.Read(12), std::string(kHandshake, 12));
	EXPECT_EQ(server->ReadToEnd(), "");
	gate.Open();
	sender.join();

	// Not a byte of it reaches the second server.
	other.Send(std::string(kHandshakeReply, 8));
	const std::string login = other.ReadTransaction();
	EXPECT_EQ(login.substr(0, 8), wire32(107) + wire32(1));
	ExpectPosted("HLcn");
	other.Send(Chat("here"));
	ExpectPosted("HLch text=CSTR here chatRef=ULNG 0");
	client.reset();
	EXPECT_EQ(other.ReadToEnd(), "");
}


TEST_F(ClientSendTest, ServerThatReadsNothing_IsLostAfterTheTimeOut)
{
	Interposed::setOption = [](int socket, int level, int option, const void* value,
								socklen_t size) {
		const timeval shorter = {0, 100000};
		return Interposed::RealSetOption(socket, level, option,
			option == SO_SNDTIMEO ? &shorter : value, size);
	};
	ShakeHands();
	const std::string text(1000, 'x');
	// As much as the system takes, and a little that has to wait.
	while (client->IsConnected() && count_threads_named("HL:Send") == 0)
		client->SendChat(text.c_str());
	ExpectPosted("HLdc");
	EXPECT_FALSE(client->IsConnected());
}


// #pragma mark - Disconnecting


typedef ClientTest ClientDisconnectTest;


TEST_F(ClientDisconnectTest, QuietConnection_EndsWithoutAWord)
{
	const size_t threads = count_threads();
	LogIn();
	EXPECT_SOON(count_threads() == threads + 1);
	client->Disconnect();
	EXPECT_FALSE(client->IsConnected());
	EXPECT_TRUE(server->WaitForEnd());
	EXPECT_SOON(count_threads() == threads);
	EXPECT_EQ(log->CountWaiting(), 0u);
}


TEST_F(ClientDisconnectTest, Idle_DoesNothing)
{
	client->Disconnect();
	client->Disconnect();
	LogIn();
	client->Disconnect();
	client->Disconnect();
	EXPECT_EQ(log->CountWaiting(), 0u);
}


TEST_F(ClientDisconnectTest, WhileResolving_TheAttemptGoesOn)
{
	Gate gate;
	Interposed::resolve = [&](const char* name, const char* port, const addrinfo* hints,
							  addrinfo** result) {
		gate.Enter();
		return Interposed::RealResolve(name, port, hints, result);
	};
	Connect();
	gate.WaitForArrival();
	client->Disconnect();
	gate.Open();

	AcceptHandshake();
	EXPECT_EQ(server->ReadTransaction().substr(0, 4), wire32(107));
	ExpectPosted("HLcn");
	EXPECT_TRUE(client->IsConnected());
	server->Send(Chat("here"));
	ExpectPosted("HLch text=CSTR here chatRef=ULNG 0");
}


TEST_F(ClientDisconnectTest, WhileConnecting_TheAttemptGoesOn)
{
	Gate gate;
	Interposed::connect = [&](int socket, const sockaddr* address, socklen_t size) {
		gate.Enter();
		return Interposed::RealConnect(socket, address, size);
	};
	Connect();
	gate.WaitForArrival();
	client->Disconnect();
	gate.Open();

	AcceptHandshake();
	EXPECT_EQ(server->ReadTransaction().substr(0, 4), wire32(107));
	ExpectPosted("HLcn");
	EXPECT_TRUE(client->IsConnected());
}


TEST_F(ClientDisconnectTest, DuringTheHandshake_TheAttemptIsNoFailure)
{
	std::atomic<thread_id> attempt(-1);
	Interposed::spawn = [&](thread_func function, const char* name, int32 priority, void* data) {
		attempt = Interposed::RealSpawn(function, name, priority, data);
		return attempt.load();
	};
	Connect();
	ASSERT_TRUE(server->Accept());
	server->Read(12);
	client->Disconnect();
	EXPECT_TRUE(server->WaitForEnd());
	status_t result;
	wait_for_thread(attempt, &result);
	Interposed::Clear();

	// Nothing was posted before this connection's success.
	ShakeHands();
}


TEST_F(ClientDisconnectTest, DuringAFlood_NothingMoreIsReadSoon)
{
	LogIn();
	std::string flood;
	for (int i = 0; i < 1000; i++)
		flood += Chat("flood");
	std::thread sender([&] {
		while (server->Send(flood))
			;
	});
	EXPECT_EQ(log->Next(), "HLch text=CSTR flood chatRef=ULNG 0");
	const size_t threads = count_threads();
	client->Disconnect();
	sender.join();
	EXPECT_SOON(count_threads() == threads - 2);
	client.reset();
	for (std::string text = log->Next(); log->CountWaiting() > 0; text = log->Next())
		ASSERT_EQ(text, "HLch text=CSTR flood chatRef=ULNG 0");
}
