/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <unistd.h>

#include "ClientFixture.h"
#include "Interposed.h"
#include "WaitFor.h"


typedef ClientTest ClientConnectFailureTest;


TEST_F(ClientConnectFailureTest, NoThread_IsTold)
{
	Interposed::spawn = [](thread_func, const char*, int32, void*) {
		return B_NO_MORE_THREADS;
	};
	Connect();
	ExpectFailure("Could not create connect thread");

	Interposed::Clear();
	LogIn();
}


TEST_F(ClientConnectFailureTest, ThreadThatCannotBeStarted_IsTold)
{
	thread_id spawned = -1;
	Interposed::spawn = [&](thread_func, const char* name, int32 priority, void* data) {
		const auto doNothing = [](void*) -> status_t {
			return B_OK;
		};
		spawned = Interposed::RealSpawn(doNothing, name, priority, data);
		return spawned;
	};
	Interposed::resume = [](thread_id) {
		return B_NO_MORE_THREADS;
	};
	Connect();
	ExpectFailure("Could not create connect thread");
	Interposed::Clear();

	// Nobody else would end it.
	resume_thread(spawned);
	status_t result;
	wait_for_thread(spawned, &result);
}


TEST_F(ClientConnectFailureTest, UnknownName_IsTold)
{
	Interposed::resolve = [](const char*, const char*, const addrinfo*, addrinfo**) {
		return EAI_NONAME;
	};
	Connect();
	ExpectFailure("Could not resolve address");
}


TEST_F(ClientConnectFailureTest, NameWithoutAddresses_IsTold)
{
	Interposed::resolve = [](const char*, const char*, const addrinfo*, addrinfo** result) {
		*result = NULL;
		return 0;
	};
	Connect();
	ExpectFailure("Could not resolve address");
}


TEST_F(ClientConnectFailureTest, NoAddressOrAnIPv6One_IsTold)
{
	for (const char* address : {"::1", "fe80::1", "not an address"}) {
		SCOPED_TRACE(address);
		Interposed::resolve = [](const char* name, const char* port, const addrinfo* hints,
								  addrinfo** result) {
			addrinfo numeric = *hints;
			numeric.ai_flags |= AI_NUMERICHOST;
			return Interposed::RealResolve(name, port, &numeric, result);
		};
		client->Connect(address, server->Port(), "", "", "Ann", 137);
		ExpectFailure("Could not resolve address");
		client.reset(new HotlineClient(log));
	}
}


TEST_F(ClientConnectFailureTest, NoSocket_IsTold)
{
	Interposed::socket = [](int, int, int) {
		errno = EMFILE;
		return -1;
	};
	Connect();
	ExpectFailure("Could not create socket");
}


TEST_F(ClientConnectFailureTest, SocketThatSelectCannotWatch_IsNone)
{
	rlimit limit;
	ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
	const rlimit before = limit;
	limit.rlim_cur = FD_SETSIZE + 100;
	ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
	const size_t descriptors = count_descriptors();
	Interposed::socket = [](int family, int type, int protocol) {
		const int low = Interposed::RealSocket(family, type, protocol);
		const int high = fcntl(low, F_DUPFD, FD_SETSIZE);
		close(low);
		return high;
	};
	Connect();
	ExpectFailure("Could not create socket");
	EXPECT_SOON(count_descriptors() == descriptors);
	setrlimit(RLIMIT_NOFILE, &before);
}


TEST_F(ClientConnectFailureTest, NobodyThere_IsTold)
{
	const uint16 port = server->Port();
	server.reset();
	const size_t descriptors = count_descriptors();
	client->Connect("127.0.0.1", port, "", "", "Ann", 137);
	ExpectFailure("Could not connect to server");
	EXPECT_EQ(count_descriptors(), descriptors);
}


TEST_F(ClientConnectFailureTest, FirstAddressFails_NoOtherIsTried)
{
	// Of the two only the second has somebody who listens.
	Interposed::resolve = [](const char*, const char* port, const addrinfo* hints,
							  addrinfo** result) {
		const int error = Interposed::RealResolve("127.0.0.2", port, hints, result);
		return error != 0 ? error
						  : Interposed::RealResolve("127.0.0.1", port, hints, &(*result)->ai_next);
	};
	Connect();
	ExpectFailure("Could not connect to server");
	EXPECT_FALSE(server->HasCaller());
}


TEST_F(ClientConnectFailureTest, HandshakeNotSent_IsTold)
{
	Interposed::send = [](int, const void*, size_t, int) -> ssize_t {
		errno = EPIPE;
		return -1;
	};
	Connect();
	ASSERT_TRUE(server->Accept());
	ExpectFailure("Failed to send handshake");
	EXPECT_TRUE(server->WaitForEnd());
}


TEST_F(ClientConnectFailureTest, InterruptedSend_IsNotRepeated)
{
	std::atomic<int> calls(0);
	Interposed::send = [&](int, const void*, size_t, int) -> ssize_t {
		calls++;
		errno = EINTR;
		return -1;
	};
	Connect();
	ExpectFailure("Failed to send handshake");
	client.reset();
	EXPECT_EQ(calls, 1);
}


TEST_F(ClientConnectFailureTest, SendInParts_IsCompleted)
{
	Interposed::send = [](int socket, const void* data, size_t, int flags) {
		return Interposed::RealSend(socket, data, 1, flags);
	};
	LogIn();
}


TEST_F(ClientConnectFailureTest, SilentServer_WithAShorterTimeOut)
{
	Interposed::setOption = [](int socket, int level, int option, const void* value,
								socklen_t size) {
		const timeval shorter = {0, 50000};
		return Interposed::RealSetOption(socket, level, option,
			option == SO_RCVTIMEO ? &shorter : value, size);
	};
	Connect();
	ASSERT_TRUE(server->Accept());
	ExpectFailure("Server did not respond to handshake");
	EXPECT_EQ(server->ReadToEnd(), std::string(kHandshake, 12));
}


TEST_F(ClientConnectFailureTest, HangUpDuringTheHandshake_IsTold)
{
	for (size_t size = 0; size < 8; size++) {
		SCOPED_TRACE(size);
		Connect();
		ASSERT_TRUE(server->Accept());
		server->Read(12);
		server->Send(std::string(kHandshakeReply, size));
		server->Hangup();
		ExpectFailure("Server did not respond to handshake");
	}
}


TEST_F(ClientConnectFailureTest, OtherProtocol_IsTold)
{
	for (const char* reply : {"HTTP/1.1 400", "trtp\0\0\0\0", "TRTQ\0\0\0\0"}) {
		SCOPED_TRACE(reply);
		Connect();
		ASSERT_TRUE(server->Accept());
		server->Read(12);
		server->Send(std::string(reply, 8));
		ExpectFailure("Invalid server response");
		EXPECT_TRUE(server->WaitForEnd());
	}
}


TEST_F(ClientConnectFailureTest, AfterEach_AnotherAttemptIsPossible)
{
	Connect();
	ASSERT_TRUE(server->Accept());
	server->Hangup();
	ExpectFailure("Server did not respond to handshake");
	LogIn();
	EXPECT_TRUE(client->IsConnected());
}


TEST_F(ClientConnectFailureTest, NoReceiveThread_IsReportedAsLost)
{
	Interposed::spawn = [](thread_func function, const char* name, int32 priority,
							void* data) -> thread_id {
		if (std::string(name) == "HL:Receive")
			return B_NO_MORE_THREADS;
		return Interposed::RealSpawn(function, name, priority, data);
	};
	ShakeHands();
	ExpectPosted("HLdc");
	EXPECT_FALSE(client->IsConnected());
	EXPECT_TRUE(server->WaitForEnd());
}
