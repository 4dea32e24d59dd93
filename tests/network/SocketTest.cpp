/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Socket.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

#include "Interposed.h"
#include "ProcessCounts.h"


/*!	One end of a pair of sockets; the test holds the other one. */
class SocketTest : public testing::Test {
protected:
	SocketTest()
	{
		EXPECT_EQ(0, socketpair(AF_UNIX, SOCK_STREAM, 0, fEnds));
		fSocket = Socket(fEnds[0], Socket::kFailAtSignals);
	}

	~SocketTest() override
	{
		Interposed::Clear();
		CloseOther();
	}

	std::string Arrived()
	{
		char bytes[64];
		const ssize_t size = recv(fEnds[1], bytes, sizeof(bytes), MSG_DONTWAIT);
		return std::string(bytes, size > 0 ? static_cast<size_t>(size) : 0);
	}

	void CloseOther()
	{
		if (fEnds[1] >= 0)
			close(fEnds[1]);
		fEnds[1] = -1;
	}

	Socket OfPolicy(Socket::SignalPolicy policy) const { return Socket(dup(fEnds[0]), policy); }

	Socket fSocket;
	int fEnds[2];
};


TEST_F(SocketTest, NotSet_DoesNothing)
{
	const Socket none;
	char byte = 'x';
	EXPECT_FALSE(none.IsSet());
	EXPECT_EQ(-1, none.Number());
	EXPECT_EQ(-1, none.Send(&byte, 1));
	EXPECT_FALSE(none.SendAll(&byte, 1));
	EXPECT_EQ(-1, none.SendAtOnce(&byte, 1));
	EXPECT_EQ(-1, none.Receive(&byte, 1));
	EXPECT_EQ(-1, none.ReceiveAll(&byte, 1));
	none.ShutDown();
}


TEST_F(SocketTest, LastShare_ClosesTheSocket)
{
	const size_t open = count_descriptors();
	Socket share = fSocket;
	EXPECT_TRUE(share.IsSameAs(fSocket));
	fSocket = Socket();
	EXPECT_EQ(open, count_descriptors());
	share = Socket();
	EXPECT_EQ(open - 1, count_descriptors());
}


TEST_F(SocketTest, ShortCalls_AreContinued)
{
	Interposed::send = [](int number, const void* data, size_t, int flags) {
		EXPECT_TRUE((flags & MSG_NOSIGNAL) != 0);
		return Interposed::RealSend(number, data, 2, flags);
	};
	EXPECT_TRUE(fSocket.SendAll("hello!", 6));
	EXPECT_EQ("hello!", Arrived());
	EXPECT_EQ(6, fSocket.SendAtOnce("hello!", 6));
	EXPECT_EQ("hello!", Arrived());
	EXPECT_EQ(2, fSocket.Send("hello!", 6));
	EXPECT_EQ("he", Arrived());
}


TEST_F(SocketTest, SendThatFails_ShutsTheConnectionDown)
{
	Interposed::send = [](int, const void*, size_t, int) {
		errno = ENOBUFS;
		return -1;
	};
	EXPECT_FALSE(fSocket.SendAll("x", 1));
	Interposed::send = nullptr;
	EXPECT_FALSE(fSocket.SendAll("x", 1));
	EXPECT_EQ(-1, fSocket.Send("x", 1));
	char byte;
	EXPECT_EQ(0, fSocket.Receive(&byte, 1));
}


TEST_F(SocketTest, FullConnection_TakesNoMoreAtOnce)
{
	const std::string bytes(4 * 1024 * 1024, 'x');
	const ssize_t sent = fSocket.SendAtOnce(bytes.data(), bytes.size());
	EXPECT_GT(sent, 0);
	EXPECT_LT(sent, static_cast<ssize_t>(bytes.size()));
	EXPECT_EQ(0, fSocket.SendAtOnce("x", 1));
}


TEST_F(SocketTest, Signal_IsAnErrorOrNone)
{
	int calls = 0;
	Interposed::send = [&](int number, const void* data, size_t size, int flags) {
		errno = EINTR;
		return ++calls % 2 != 0 ? -1 : Interposed::RealSend(number, data, size, flags);
	};
	Interposed::receive = [&](int number, void* buffer, size_t size, int flags) {
		errno = EINTR;
		return ++calls % 2 != 0 ? -1 : Interposed::RealReceive(number, buffer, size, flags);
	};
	ASSERT_EQ(2, write(fEnds[1], "ab", 2));
	char byte = '\0';
	for (const Socket::SignalPolicy policy : {Socket::kIgnoreSignals, Socket::kFailAtSignals}) {
		const bool isIgnored = policy == Socket::kIgnoreSignals;
		SCOPED_TRACE(isIgnored);
		const Socket share = OfPolicy(policy);
		calls = 0;
		EXPECT_EQ(isIgnored ? 1 : -1, share.Receive(&byte, 1));
		calls = 0;
		EXPECT_EQ(isIgnored ? 1 : -1, share.Send("x", 1));
		calls = 0;
		EXPECT_EQ(isIgnored, share.SendAll("x", 1));
	}
	EXPECT_EQ('a', byte);
}


TEST_F(SocketTest, ReceiveAll_EndsWithTheConnection)
{
	ASSERT_EQ(3, write(fEnds[1], "abc", 3));
	CloseOther();
	char bytes[8] = ".......";
	EXPECT_EQ(2, fSocket.ReceiveAll(bytes, 2));
	EXPECT_EQ(1, fSocket.ReceiveAll(bytes + 2, 5));
	EXPECT_STREQ("abc....", bytes);
	EXPECT_EQ(0, fSocket.ReceiveAll(bytes, 5));
}


TEST_F(SocketTest, Timeouts_AreTheSockets)
{
	fSocket.SetTimeouts(7, 0);
	timeval receive = {};
	timeval send = {};
	socklen_t size = sizeof(timeval);
	getsockopt(fEnds[0], SOL_SOCKET, SO_RCVTIMEO, &receive, &size);
	getsockopt(fEnds[0], SOL_SOCKET, SO_SNDTIMEO, &send, &size);
	EXPECT_EQ(7, receive.tv_sec);
	EXPECT_EQ(0, send.tv_sec);
	fSocket.SetTimeouts(0, 9);
	getsockopt(fEnds[0], SOL_SOCKET, SO_RCVTIMEO, &receive, &size);
	getsockopt(fEnds[0], SOL_SOCKET, SO_SNDTIMEO, &send, &size);
	EXPECT_EQ(7, receive.tv_sec);
	EXPECT_EQ(9, send.tv_sec);
}
