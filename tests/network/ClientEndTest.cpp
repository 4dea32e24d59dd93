/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <atomic>
#include <cerrno>
#include <future>
#include <memory>
#include <netinet/in.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "ClientFixture.h"
#include "Gate.h"
#include "Interposed.h"
#include "WaitFor.h"


/*!	Deletes clients in the middle of what they do. Nothing may be left of them, and nothing posted
	afterwards.
*/
class ClientEndTest : public ClientTest {
protected:
	ClientEndTest();
	~ClientEndTest() override;

	// Deletes the client on a thread of its own, as the program does, while one of its threads is
	// held, which goes on when the deletion waits for it.
	void DeleteBehind(Gate& gate);
	// For connections that are opened after this: a call that waits does so until something wakes
	// it.
	static void WaitWithoutTimeOuts();
	void ExpectEndsByItself();
	void ExpectNothingLeft();

private:
	size_t fDescriptors;
	std::promise<void> fHasBegun;
	std::atomic<bool> fIsFirst;
};


ClientEndTest::ClientEndTest()
	: fDescriptors(count_descriptors()),
	  fIsFirst(true)
{
	Interposed::wait = [this](thread_id) {
		if (fIsFirst.exchange(false))
			fHasBegun.set_value();
	};
}


ClientEndTest::~ClientEndTest()
{
	EndClient();
}


void
ClientEndTest::DeleteBehind(Gate& gate)
{
	std::thread deletion([this] {
		client.reset();
	});
	fHasBegun.get_future().wait();
	gate.Open();
	deletion.join();
	EXPECT_EQ(log->CountMessages(), 0);
}


void
ClientEndTest::WaitWithoutTimeOuts()
{
	Interposed::setOption = [](int number, int level, int option, const void* value,
								socklen_t size) {
		if (option == SO_RCVTIMEO || option == SO_SNDTIMEO)
			return 0;
		return Interposed::RealSetOption(number, level, option, value, size);
	};
}


void
ClientEndTest::ExpectEndsByItself()
{
	std::atomic<bool> hasEnded(false);
	std::thread deletion([&] {
		client.reset();
		hasEnded = true;
	});
	EXPECT_SOON(hasEnded.load()) << "the end of the client waits for the network";
	if (!hasEnded)
		server.reset(new RawServer);
	deletion.join();
}


void
ClientEndTest::ExpectNothingLeft()
{
	client.reset();
	const int32 posted = log->CountMessages();
	server->Hangup();
	EndClient();
	EXPECT_EQ(count_descriptors(), fDescriptors);
	EXPECT_EQ(posted, log->CountMessages());
}


TEST_F(ClientEndTest, NeverConnected_LeavesNothing)
{
	ExpectNothingLeft();
}


TEST_F(ClientEndTest, AtOnceAfterConnect_LeavesNothing)
{
	for (int i = 0; i < 100; i++) {
		Connect();
		client.reset(new HotlineClient(log));
	}
	ExpectNothingLeft();
}


TEST_F(ClientEndTest, WhileResolving_NothingIsDoneWithTheAddress)
{
	Gate gate;
	std::atomic<int> sockets(0);
	Interposed::resolve = [&](const char* name, const char* port, const addrinfo* hints,
							  addrinfo** result) {
		gate.Enter();
		return Interposed::RealResolve(name, port, hints, result);
	};
	Interposed::socket = [&](int family, int type, int protocol) {
		sockets++;
		return Interposed::RealSocket(family, type, protocol);
	};
	Connect();
	gate.WaitForArrival();
	DeleteBehind(gate);
	EXPECT_EQ(sockets, 0);
	ExpectNothingLeft();
}


TEST_F(ClientEndTest, WhileResolving_LeavesTheResolverBehind)
{
	Gate gate;
	Interposed::resolve = [&](const char* name, const char* port, const addrinfo* hints,
							  addrinfo** result) {
		gate.Enter();
		return Interposed::RealResolve(name, port, hints, result);
	};
	Connect();
	gate.WaitForArrival();
	ExpectEndsByItself();
	EXPECT_EQ(0, log->CountMessages());
	gate.Open();
	ExpectNothingLeft();
	EXPECT_FALSE(server->HasCaller());
}


TEST_F(ClientEndTest, WhileResolvingInVain_SaysNothing)
{
	Gate gate;
	Interposed::resolve = [&](const char*, const char*, const addrinfo*, addrinfo**) {
		gate.Enter();
		return EAI_AGAIN;
	};
	Connect();
	gate.WaitForArrival();
	DeleteBehind(gate);
	ExpectNothingLeft();
}


TEST_F(ClientEndTest, WhileConnecting_DoesNotWaitForTheNetwork)
{
	// A listener whose queue is full leaves further callers without an answer, so that only the end
	// of the client ends the call.
	server.reset(new RawServer(0));
	sockaddr_in address = {};
	address.sin_family = AF_INET;
	address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
	address.sin_port = htons(server->Port());
	std::vector<int> callers;
	for (int i = 0; i < 3; i++) {
		const int caller = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
		// Some of them come to wait, which is the purpose.
		static_cast<void>(connect(caller, reinterpret_cast<sockaddr*>(&address), sizeof(address)));
		callers.push_back(caller);
	}

	std::promise<void> isConnecting;
	std::promise<int> result;
	Interposed::connect = [&](int number, const sockaddr* to, socklen_t size) {
		isConnecting.set_value();
		const int connected = Interposed::RealConnect(number, to, size);
		result.set_value(connected);
		return connected;
	};
	WaitWithoutTimeOuts();
	Connect();
	isConnecting.get_future().wait();
	ExpectEndsByItself();
	EXPECT_EQ(result.get_future().get(), -1);
	EXPECT_EQ(0, log->CountMessages());
	for (const int caller : callers)
		close(caller);
	ExpectNothingLeft();
}


TEST_F(ClientEndTest, JustConnected_NothingIsSent)
{
	Gate gate;
	Interposed::connect = [&](int number, const sockaddr* to, socklen_t size) {
		const int result = Interposed::RealConnect(number, to, size);
		gate.Enter();
		return result;
	};
	Connect();
	gate.WaitForArrival();
	ASSERT_TRUE(server->Accept());
	DeleteBehind(gate);
	EXPECT_EQ(server->ReadToEnd(), "");
	ExpectNothingLeft();
}


TEST_F(ClientEndTest, WhileTheServerIsSilent_WakesTheHandshake)
{
	WaitWithoutTimeOuts();
	Connect();
	ASSERT_TRUE(server->Accept());
	server->Read(12);
	ExpectEndsByItself();
	EXPECT_EQ(server->ReadToEnd(), "");
	EXPECT_EQ(0, log->CountMessages());
	ExpectNothingLeft();
}


TEST_F(ClientEndTest, BetweenHandshakeAndLogin_NothingIsStarted)
{
	Gate gate;
	Interposed::receive = [&](int number, void* buffer, size_t size, int flags) {
		const ssize_t result = Interposed::RealReceive(number, buffer, size, flags);
		gate.Enter();
		return result;
	};
	Connect();
	AcceptHandshake();
	gate.WaitForArrival();
	DeleteBehind(gate);
	EXPECT_EQ(server->ReadToEnd(), "");
	ExpectNothingLeft();
}


TEST_F(ClientEndTest, WhileSendingTheLogin_NothingFollows)
{
	Gate gate;
	Interposed::send = [&](int number, const void* data, size_t size, int flags) {
		if (size > 12) {
			gate.Enter();
		}
		return Interposed::RealSend(number, data, size, flags);
	};
	Connect();
	AcceptHandshake();
	gate.WaitForArrival();
	DeleteBehind(gate);
	ExpectNothingLeft();
}


TEST_F(ClientEndTest, QuietConnection_LeavesNothing)
{
	LogIn();
	client.reset();
	EXPECT_TRUE(server->WaitForEnd());
	ExpectNothingLeft();
}


TEST_F(ClientEndTest, LostConnection_LeavesNothing)
{
	LogIn();
	server->Hangup();
	ExpectPosted("HLdc");
	ExpectNothingLeft();
}


TEST_F(ClientEndTest, ReceivingAFlood_NothingIsPostedAfterwards)
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
	client.reset();
	log->PostMessage('last');
	sender.join();
	std::string text = log->Next();
	while (text == "HLch text=CSTR flood chatRef=ULNG 0")
		text = log->Next();
	EXPECT_EQ(text, "last");
	ExpectNothingLeft();
}


TEST_F(ClientEndTest, SendingToAServerThatDoesNotRead_WakesTheCall)
{
	std::promise<void> isStuck;
	std::atomic<bool> first(true);
	Interposed::setOption = [](int number, int level, int option, const void* value,
								socklen_t size) {
		const int small = 4096;
		if (option == SO_SNDTIMEO)
			Interposed::RealSetOption(number, level, SO_SNDBUF, &small, sizeof(small));
		return Interposed::RealSetOption(number, level, option, value, size);
	};
	Interposed::send = [&](int number, const void* data, size_t size, int flags) {
		const ssize_t result = Interposed::RealSend(number, data, size, flags | MSG_DONTWAIT);
		if (result >= 0 || errno != EAGAIN)
			return result;
		if (first.exchange(false))
			isStuck.set_value();
		return Interposed::RealSend(number, data, size, flags);
	};
	LogIn();
	std::thread sender([&] {
		const std::string text(65535, 'x');
		while (client->IsConnected())
			client->SendChat(text.c_str());
	});
	isStuck.get_future().wait();
	client->Disconnect();
	sender.join();
	ExpectNothingLeft();
}


TEST_F(ClientEndTest, FiveHundredConnections_LeaveNothing)
{
	for (int i = 0; i < 500; i++) {
		SCOPED_TRACE(i);
		ShakeHands();
		client->Disconnect();
		EXPECT_TRUE(server->WaitForEnd());
		// One client for many connections, and many clients.
		if (i % 2 == 1)
			client.reset(new HotlineClient(log));
		if (HasFailure())
			break;
	}
	ExpectNothingLeft();
}


TEST_F(ClientEndTest, FiveHundredFailures_LeaveNothing)
{
	for (int i = 0; i < 500; i++) {
		Connect();
		ASSERT_TRUE(server->Accept());
		if (i % 2 == 0)
			server->Send("HTTP/1.1");
		else
			server->Hangup();
		EXPECT_EQ(log->Next().substr(0, 4), "HLcf");
	}
	ExpectNothingLeft();
}
