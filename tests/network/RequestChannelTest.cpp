/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RequestChannel.h"

#include <gtest/gtest.h>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

#include "Socket.h"
#include "TransactionBuilder.h"
#include "WireBytes.h"


/*!	A channel, and the other ends of the connections that it is opened on. */
class RequestChannelTest : public testing::Test {
protected:
	~RequestChannelTest() override
	{
		fChannel.Close(fSocket);
		if (fOther >= 0)
			close(fOther);
	}

	Socket Open()
	{
		int ends[2];
		EXPECT_EQ(0, socketpair(AF_UNIX, SOCK_STREAM, 0, ends));
		if (fOther >= 0)
			close(fOther);
		fOther = ends[1];
		fSocket = Socket(ends[0], Socket::kFailAtSignals);
		fChannel.Open(fSocket);
		return fSocket;
	}

	uint32 Send(uint32 task = 0, const char* path = NULL)
	{
		TransactionBuilder request;
		request.BuildParamInt16(103, 7);
		return fChannel.Send(300, request, task, path);
	}

	std::string Arrived() const
	{
		char bytes[256];
		const ssize_t size = recv(fOther, bytes, sizeof(bytes), MSG_DONTWAIT);
		return std::string(bytes, size > 0 ? static_cast<size_t>(size) : 0);
	}

	RequestChannel fChannel;

private:
	Socket fSocket;
	int fOther = -1;
};


TEST_F(RequestChannelTest, Requests_HaveIdsInTheirOrder)
{
	Open();
	const std::string params = wire_param(103, wire16(7));
	for (const uint32 id : {1u, 2u, 3u})
		EXPECT_EQ(id, Send());
	EXPECT_EQ(wire_dump(wire_transaction(300, 1, params) + wire_transaction(300, 2, params)
				  + wire_transaction(300, 3, params)),
		wire_dump(Arrived()));
}


TEST_F(RequestChannelTest, NotOpen_SendsNothingButRecords)
{
	EXPECT_EQ(1u, Send(TaskList::kTaskFileList, "a"));
	EXPECT_STREQ("a", fChannel.TakeTask(1)->path.String());
	EXPECT_TRUE(fChannel.TakeTask(1) == NULL);
}


TEST_F(RequestChannelTest, OpenedAgain_BeginsAnew)
{
	Open();
	Send(TaskList::kTaskFileList, "first");
	Send(TaskList::kTaskFileList, "second");
	Open();
	EXPECT_EQ(1u, Send());
	EXPECT_EQ(wire_dump(wire_transaction(300, 1, wire_param(103, wire16(7)))),
		wire_dump(Arrived()));
	EXPECT_TRUE(fChannel.TakeTask(2) == NULL);
}


TEST_F(RequestChannelTest, Closed_SendsNoMore)
{
	const Socket socket = Open();
	Send();
	Arrived();
	fChannel.Close(socket);
	EXPECT_EQ(2u, Send());
	EXPECT_EQ("", Arrived());
	EXPECT_EQ(-1, socket.Send("x", 1)) << "the connection is shut down";
}


TEST_F(RequestChannelTest, ForgottenTask_HasNoRecord)
{
	Send(TaskList::kTaskFileList, "a");
	fChannel.ForgetTasks();
	EXPECT_TRUE(fChannel.TakeTask(1) == NULL);
}


TEST_F(RequestChannelTest, FormerConnection_DoesNotCloseTheNext)
{
	const Socket former = Open();
	Open();
	Send(TaskList::kTaskFileList, "a");
	fChannel.Close(former);
	fChannel.Close(Socket());
	EXPECT_EQ(2u, Send());
	EXPECT_EQ(2 * (22u + 6), Arrived().size());
	EXPECT_TRUE(fChannel.TakeTask(1) != NULL);
}
