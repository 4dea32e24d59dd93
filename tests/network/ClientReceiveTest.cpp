/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <vector>

#include "ClientFixture.h"
#include "Interposed.h"


/*!	A server's transaction and what comes of it. */
struct Exchange {
	std::string bytes;
	std::vector<std::string> posted;
	// How many requests the client makes of itself.
	uint32 requests = 0;
};


/*!	Has every kind of transaction read, with the receive loop's reads cut as a test wants it. */
class ClientReceiveTest : public ClientTest {
protected:
	ClientReceiveTest()
		: fNextId(3),
		  fMaxRead(SIZE_MAX),
		  fCutAt(SIZE_MAX),
		  fPosition(0)
	{
		Interposed::receive = [this](int socket, void* buffer, size_t size, int flags) {
			const size_t position = fPosition;
			const size_t cut = fCutAt;
			size_t allowed = std::min<size_t>(size, fMaxRead);
			if (position < cut)
				allowed = std::min(allowed, cut - position);
			const ssize_t result = Interposed::RealReceive(socket, buffer, allowed, flags);
			if (result > 0)
				fPosition += static_cast<size_t>(result);
			return result;
		};
		LogIn();
	}

	~ClientReceiveTest() override { client.reset(); }

	// The reads after the next so many bytes begin with a new one.
	void CutAt(size_t offset) { fCutAt = fPosition + offset; }
	void ReadAtMost(size_t size) { fMaxRead = size; }

	// One of every kind; the requests to be replied to are made now.
	std::vector<Exchange> Everything();
	void ExpectAllOf(const Exchange& exchange);

private:
	std::string _Reply(const std::string& params, uint32 error = 0)
	{
		return wire_transaction(0x10000, fNextId++, params, error);
	}

	uint32 fNextId;
	std::atomic<size_t> fMaxRead;
	std::atomic<size_t> fCutAt;
	std::atomic<size_t> fPosition;
};


std::vector<Exchange>
ClientReceiveTest::Everything()
{
	const std::string source = " address=CSTR 127.0.0.1 port=USHT "
		+ std::to_string(client->Port());
	const std::string user = wire16(7) + wire16(137) + wire16(2) + wire16(4) + "Bert";
	const std::string file = "TEXTttxt" + wire32(9) + wire32(0) + wire32(4) + "name";
	const std::string transfer = wire_param(107, wire32(5)) + wire_param(108, wire32(6));

	client->RequestUserList();
	client->RequestFileList("a");
	client->RequestDownload("a", "name");
	client->RequestUpload("a", "name", 1, "/name");
	client->RequestBanner();
	client->RequestUserList();
	client->GetUserInfo(7);
	return {
		{Chat("hello"), {"HLch text=CSTR hello chatRef=ULNG 0"}},
		{wire_transaction(104, 0, wire_param(101, "hello") + wire_param(103, wire16(7))),
			{"HLmg text=CSTR hello nick=CSTR  socket=USHT 7 icon=USHT 0"}},
		{wire_transaction(301, 0, wire_param(103, wire16(7)) + wire_param(102, "Bert")),
			{"HLuc socket=USHT 7 icon=USHT 0 color=USHT 0 nick=CSTR Bert"}},
		{wire_transaction(302, 0, wire_param(103, wire16(7))), {"HLul socket=USHT 7"}},
		{wire_transaction(102, 0, wire_param(101, "news")), {}},
		{wire_transaction(109, 0, wire_param(101, "Be nice.")), {"HLag text=CSTR Be nice."}},
		{wire_transaction(111, 0, wire_param(101, "Bye")), {"HLpq"}},
		{wire_transaction(355, 0, wire_param(101, "All!")), {"HLbc text=CSTR All!"}},
		{wire_transaction(111, 0, ""), {}},
		{wire_transaction(122, 0, wire_param(152, "JPEG")), {"HLsb"}, 1},
		{wire_transaction(109, 0, wire_param(154, wire8(1))), {}, 1},
		{wire_transaction(4711, 0, wire_param(101, "what?")), {}},
		{_Reply(wire_param(300, user)),
			{"HLuj socket=USHT 7 icon=USHT 137 color=USHT 2 nick=CSTR Bert"}},
		{_Reply(wire_param(200, file)),
			{"HLfl path=CSTR a name=CSTR name type=CSTR TEXT creator=CSTR ttxt size=LONG 9"}},
		{_Reply(transfer), {"HLdl ref=ULNG 5 size=ULNG 6 filename=CSTR name" + source}},
		{_Reply(transfer), {"HLup ref=ULNG 5 filename=CSTR name localpath=CSTR /name" + source}},
		{_Reply(transfer), {"HLbr ref=ULNG 5 size=ULNG 6" + source}},
		{_Reply(wire_param(100, "No."), 1), {"HLte error=CSTR No."}},
		{_Reply(wire_param(101, "info")), {}},
		{wire_transaction(0x10000, 0x7FFFFFFF, wire_param(101, "to nothing")), {}},
	};
}


void
ClientReceiveTest::ExpectAllOf(const Exchange& exchange)
{
	fNextId += exchange.requests;
	for (const std::string& posted : exchange.posted)
		ExpectPosted(posted);
}


TEST_F(ClientReceiveTest, WholeTransactions_AreEachPosted)
{
	for (const Exchange& exchange : Everything()) {
		SCOPED_TRACE(wire_dump(exchange.bytes));
		server->Send(exchange.bytes);
		ExpectAllOf(exchange);
	}
	ExpectNothingPosted();
}


TEST_F(ClientReceiveTest, CutAtEachByte_IsPutTogether)
{
	const size_t count = Everything().size();
	for (size_t i = 0; i < count; i++) {
		for (size_t cut = 1;; cut++) {
			const Exchange exchange = Everything()[i];
			if (cut >= exchange.bytes.size())
				break;
			SCOPED_TRACE(wire_dump(exchange.bytes.substr(0, cut)));
			CutAt(cut);
			server->Send(exchange.bytes);
			ExpectAllOf(exchange);
			// What it asks for is asked for before the next one is made.
			if (exchange.requests > 0)
				ExpectNothingPosted();
			server->DropInput();
			if (HasFailure())
				return;
		}
	}
	ExpectNothingPosted();
}


TEST_F(ClientReceiveTest, OneByteAtATime_IsPutTogether)
{
	ReadAtMost(1);
	for (const Exchange& exchange : Everything()) {
		SCOPED_TRACE(wire_dump(exchange.bytes));
		server->Send(exchange.bytes);
		ExpectAllOf(exchange);
	}
	ExpectNothingPosted();
}


TEST_F(ClientReceiveTest, OneByteInASegment_IsPutTogether)
{
	for (const Exchange& exchange : Everything()) {
		SCOPED_TRACE(wire_dump(exchange.bytes));
		server->SendOneByOne(exchange.bytes);
		ExpectAllOf(exchange);
	}
	ExpectNothingPosted();
}


TEST_F(ClientReceiveTest, AllInOneSegment_IsTakenApart)
{
	const std::vector<Exchange> everything = Everything();
	std::string bytes;
	for (const Exchange& exchange : everything)
		bytes += exchange.bytes;
	server->Send(bytes);
	for (const Exchange& exchange : everything) {
		SCOPED_TRACE(wire_dump(exchange.bytes));
		ExpectAllOf(exchange);
	}
	ExpectNothingPosted();
}


TEST_F(ClientReceiveTest, SizesBelowThree_KeepTheStreamInStep)
{
	server->Send(wire_header(106, 0, 0, 2, 2, 0) + Chat("after 2"));
	ExpectPosted("HLch text=CSTR after 2 chatRef=ULNG 0");
	server->Send(wire_header(106, 0, 0, 0, 0, 0) + Chat("after 0"));
	ExpectPosted("HLch text=CSTR after 0 chatRef=ULNG 0");
	// One byte follows, for whichever type. A handler that posts always does.
	server->Send(wire_header(106, 0, 0, 1, 1, 0) + "!" + Chat("after 1"));
	ExpectPosted("HLch text=CSTR after 1 chatRef=ULNG 0");
	server->Send(wire_header(999, 0, 0, 1, 1, 0) + "!" + Chat("after 1"));
	ExpectPosted("HLch text=CSTR after 1 chatRef=ULNG 0");
	server->Send(wire_header(111, 0, 0, 1, 1, 0) + "!");
	ExpectPosted("HLpq");
}


TEST_F(ClientReceiveTest, BytesOfTheNext_AreNotReadAhead)
{
	// The server has sent both when the client reads the first.
	std::vector<size_t> sizes;
	client.reset();
	Interposed::receive = [&](int socket, void* buffer, size_t size, int flags) {
		const ssize_t result = Interposed::RealReceive(socket, buffer, size, flags);
		sizes.push_back(size);
		return result;
	};
	client.reset(new HotlineClient(log));
	ShakeHands();
	server->Send(Chat("one") + Chat("three"));
	ExpectPosted("HLch text=CSTR one chatRef=ULNG 0");
	ExpectPosted("HLch text=CSTR three chatRef=ULNG 0");
	client.reset();
	ASSERT_GE(sizes.size(), 5u);
	sizes.resize(5);
	EXPECT_EQ(sizes, std::vector<size_t>({8, 22, 7, 22, 9}));
}


TEST_F(ClientReceiveTest, InterruptedSelect_IsRepeatedWithAWholeSecond)
{
	client.reset();
	std::atomic<int> calls(0);
	Interposed::select = [&](int count, fd_set* readable, timeval* timeout) {
		EXPECT_EQ(timeout->tv_usec, 0);
		// The look before the wait.
		if (timeout->tv_sec == 0) {
			FD_ZERO(readable);
			return 0;
		}
		EXPECT_EQ(timeout->tv_sec, 1);
		if (++calls % 2 == 1) {
			timeout->tv_sec = 0;
			errno = EINTR;
			return -1;
		}
		return Interposed::RealSelect(count, readable, timeout);
	};
	client.reset(new HotlineClient(log));
	LogIn();
	server->Send(Chat("still here"));
	ExpectPosted("HLch text=CSTR still here chatRef=ULNG 0");
	client.reset();
	EXPECT_GT(calls, 4);
}


TEST_F(ClientReceiveTest, NothingToRead_WaitsASecondAfterOneLook)
{
	client.reset();
	std::atomic<int> looks(0);
	std::atomic<int> waits(0);
	Interposed::select = [&](int count, fd_set* readable, timeval* timeout) {
		if (timeout->tv_sec == 0) {
			// Two looks in a row would not rest.
			EXPECT_LE(++looks, waits + 1);
			FD_ZERO(readable);
			return 0;
		}
		waits++;
		return Interposed::RealSelect(count, readable, timeout);
	};
	client.reset(new HotlineClient(log));
	LogIn();
	server->Send(Chat("awaited"));
	ExpectPosted("HLch text=CSTR awaited chatRef=ULNG 0");
	client.reset();
	EXPECT_GT(waits, 1);
}


TEST_F(ClientReceiveTest, SelectThatTimesOut_IsRepeated)
{
	client.reset();
	std::atomic<int> calls(0);
	Interposed::select = [&](int count, fd_set* readable, timeval* timeout) {
		if (++calls <= 3) {
			FD_ZERO(readable);
			return 0;
		}
		return Interposed::RealSelect(count, readable, timeout);
	};
	client.reset(new HotlineClient(log));
	LogIn();
	client.reset();
	EXPECT_GT(calls, 3);
}


TEST_F(ClientReceiveTest, SelectThatFails_IsALoss)
{
	client.reset();
	Interposed::select = [](int, fd_set*, timeval*) {
		errno = EBADF;
		return -1;
	};
	client.reset(new HotlineClient(log));
	ShakeHands();
	ExpectPosted("HLdc");
	EXPECT_FALSE(client->IsConnected());
}
