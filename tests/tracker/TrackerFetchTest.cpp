/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TrackerFetch.h"
#include "Socket.h"

#include <cerrno>
#include <cstring>
#include <netdb.h>
#include <sys/socket.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <Message.h>
#include <OS.h>

#include "AppMessages.h"
#include "InterposedCalls.h"
#include "MessageRecorder.h"
#include "ProcessCounts.h"
#include "RawServer.h"
#include "Socket.h"
#include "WaitFor.h"
#include "WireBytes.h"
#include "WireRecords.h"


static const std::string kRequest = "HTRK" + wire16(1);


/*!	A fetch on a thread of its own, as the window has it. */
class FetchRun {
public:
	FetchRun(const std::string& address, BLooper* target)
		: fFetch(address.c_str(), running, target),
		  fResult(-1),
		  fHasEnded(false)
	{
		resume_thread(spawn_thread(_Entry, "TrackerFetch", B_NORMAL_PRIORITY, this));
	}

	~FetchRun()
	{
		EXPECT_TRUE(WaitFor(
			[this] {
				return HasEnded();
			},
			60));
	}

	bool HasEnded() const { return fHasEnded; }
	status_t Result()
	{
		return WaitFor([this] {
			return HasEnded();
		})
			? fResult
			: -1;
	}

	void Stop()
	{
		running = false;
		fFetch.Stop();
	}

	std::atomic<bool> running{true};

private:
	static status_t _Entry(void* data)
	{
		FetchRun* run = static_cast<FetchRun*>(data);
		run->fResult = run->fFetch.Run();
		run->fHasEnded = true;
		return B_OK;
	}

	TrackerFetch fFetch;
	status_t fResult;
	std::atomic<bool> fHasEnded;
};


class TrackerFetchTest : public testing::Test {
protected:
	TrackerFetchTest()
		: fRecorder(new MessageRecorder)
	{
	}

	std::string Address() const { return "127.0.0.1:" + std::to_string(fServer.Port()); }

	// Lets a fetch meet an answer, which is all that the tracker says before it closes.
	status_t Fetch(const std::string& answer)
	{
		FetchRun run(Address(), fRecorder.get());
		EXPECT_TRUE(fServer.Accept());
		EXPECT_EQ(kRequest, fServer.Read(kRequest.size()));
		fServer.Send(answer);
		fServer.Hangup();
		return run.Result();
	}

	// The names of the servers that were posted so far, each with a blank behind it, then how it
	// ended.
	std::string Outcome()
	{
		std::string text;
		for (const BMessage& message : fRecorder->Messages()) {
			if (message.what == kMsgTrackerServer)
				text += std::string(message.GetString("name", "?")) + " ";
			else if (message.what == kMsgTrackerError)
				text += std::string("error: ") + message.GetString("error", "?");
			else if (message.what == kMsgTrackerDone && message.IsEmpty())
				text += "done";
			else
				text += "?";
		}
		return text;
	}

	InterposedCalls fCalls;
	RawServer fServer;
	RecorderOwner fRecorder;
};


TEST_F(TrackerFetchTest, Request_IsSixBytesAndNothingFollows)
{
	FetchRun run(Address(), fRecorder.get());
	ASSERT_TRUE(fServer.Accept());
	EXPECT_EQ("HTRK" + wire16(1), fServer.Read(6));
	fServer.Send(wire_tracker_header(5, 0) + "x");
	EXPECT_EQ("", fServer.ReadToEnd());
	EXPECT_EQ(0, run.Result());
	EXPECT_EQ("done", Outcome());
}


TEST_F(TrackerFetchTest, Server_IsPostedWithAllItsFields)
{
	const std::string record = wire_server_record("caf\xe9 <b>", "100 % &File", 65535, 40000);
	EXPECT_EQ(0, Fetch(wire_tracker_header(uint16(record.size() + 4), 1) + record));

	const std::vector<BMessage> messages = fRecorder->Messages();
	ASSERT_EQ(2u, messages.size());
	EXPECT_EQ(uint32(kMsgTrackerServer), messages[0].what);
	EXPECT_EQ(5, messages[0].CountNames(B_ANY_TYPE));
	EXPECT_STREQ("caf\xe9 <b>", messages[0].GetString("name"));
	EXPECT_STREQ("100 % &File", messages[0].GetString("desc"));
	EXPECT_STREQ("10.20.30.40", messages[0].GetString("ip"));
	EXPECT_EQ(int16(65535), messages[0].GetInt16("port", 0));
	EXPECT_EQ(int16(40000), messages[0].GetInt16("users", 0));
	EXPECT_EQ(uint32(kMsgTrackerDone), messages[1].what);
	EXPECT_TRUE(messages[1].IsEmpty());
}


TEST_F(TrackerFetchTest, EmptyName_IsPostedAsAnEmptyString)
{
	EXPECT_EQ(0, Fetch(wire_tracker_header(0, 0) + wire_server_record("", "")));
	const std::vector<BMessage> messages = fRecorder->Messages();
	ASSERT_EQ(2u, messages.size());
	EXPECT_STREQ("", messages[0].GetString("name", "none"));
	EXPECT_STREQ("", messages[0].GetString("desc", "none"));
}


TEST_F(TrackerFetchTest, Size_EndsTheListingWithoutTheTrackerClosing)
{
	const std::string listing = wire_server_record("one", "") + wire_server_record("two", "");
	FetchRun run(Address(), fRecorder.get());
	ASSERT_TRUE(fServer.Accept());
	fServer.Send(wire_tracker_header(uint16(listing.size() + 4), 0) + listing
		+ wire_server_record("beyond", ""));
	EXPECT_TRUE(fServer.WaitForEnd());
	EXPECT_EQ(0, run.Result());
	EXPECT_EQ("one two done", Outcome());
}


TEST_F(TrackerFetchTest, SizeThatSaysNothing_ReadsUntilTheTrackerCloses)
{
	const std::string listing = wire_server_record("one", "") + wire_server_record("two", "");
	std::string expected;
	for (const uint16 size : {0, 3, 4}) {
		SCOPED_TRACE(size);
		EXPECT_EQ(0, Fetch(wire_tracker_header(size, 2) + listing));
		expected += "one two done";
		EXPECT_EQ(expected, Outcome());
	}
}


TEST_F(TrackerFetchTest, ListingWithoutEnd_IsReadUpTo64KiB)
{
	FetchRun run(Address(), fRecorder.get());
	ASSERT_TRUE(fServer.Accept());
	fServer.Read(6);
	fServer.Send(wire_tracker_header(0, 0) + wire_zeros(70000));
	EXPECT_TRUE(fServer.WaitForEnd());
	EXPECT_EQ(0, run.Result());
	// Twelve bytes make a record, which leaves four of the 65,536.
	const std::vector<BMessage> messages = fRecorder->Messages();
	ASSERT_EQ(5461u + 1, messages.size());
	EXPECT_STREQ("0.0.0.0", messages[5460].GetString("ip"));
	EXPECT_EQ(uint32(kMsgTrackerDone), messages[5461].what);
}


TEST_F(TrackerFetchTest, ServerCount_LimitsTheRecords)
{
	const std::string listing = wire_server_record("one", "") + wire_server_record("two", "");
	std::string expected;
	for (const auto& [count, outcome] : {std::pair<uint16, const char*>(0, "one two done"),
			 {1, "one done"}, {2, "one two done"}, {65535, "one two done"}}) {
		SCOPED_TRACE(count);
		EXPECT_EQ(0, Fetch(wire_tracker_header(uint16(listing.size() + 4), count) + listing));
		expected += outcome;
		EXPECT_EQ(expected, Outcome());
	}
}


TEST_F(TrackerFetchTest, NoServers_IsNoError)
{
	EXPECT_EQ(0, Fetch(wire_tracker_header(4, 0)));
	EXPECT_EQ("done", Outcome());
}


TEST_F(TrackerFetchTest, ListingCutAtAnyByte_KeepsWhatIsWhole)
{
	const std::string first = wire_server_record("one", "1");
	const std::string listing = first + wire_server_record("two", "2");
	std::string expected;
	for (size_t length = 0; length < listing.size(); length++) {
		SCOPED_TRACE(length);
		EXPECT_EQ(0,
			Fetch(wire_tracker_header(uint16(listing.size() + 4), 2) + listing.substr(0, length)));
		expected += length >= first.size() ? "one done" : "done";
		EXPECT_EQ(expected, Outcome());
	}
}


TEST_F(TrackerFetchTest, OneByteAtATime_MakesNoDifference)
{
	FetchRun run(Address(), fRecorder.get());
	ASSERT_TRUE(fServer.Accept());
	EXPECT_EQ(kRequest, fServer.Read(kRequest.size()));
	EXPECT_TRUE(
		fServer.SendOneByOne(wire_tracker_header(0, 1) + wire_server_record("slow", "tracker")));
	fServer.Hangup();
	EXPECT_EQ(0, run.Result());
	EXPECT_EQ("slow done", Outcome());
}


TEST_F(TrackerFetchTest, HeaderCutAtAnyByte_IsAnError)
{
	std::string expected;
	for (size_t length = 0; length < 14; length++) {
		SCOPED_TRACE(length);
		EXPECT_EQ(1, Fetch(wire_tracker_header(100, 1).substr(0, length)));
		expected += "error: Failed to read tracker response";
		EXPECT_EQ(expected, Outcome());
	}
}


TEST_F(TrackerFetchTest, Reset_IsAnError)
{
	FetchRun run(Address(), fRecorder.get());
	ASSERT_TRUE(fServer.Accept());
	fServer.Read(6);
	fServer.Reset();
	EXPECT_EQ(1, run.Result());
	EXPECT_EQ("error: Failed to read tracker response", Outcome());
}


TEST_F(TrackerFetchTest, WrongMagic_IsAnError)
{
	EXPECT_EQ(1, Fetch("HTTP/1.1 400 Bad Request"));
	EXPECT_EQ("error: Invalid tracker response", Outcome());
}


TEST_F(TrackerFetchTest, RequestSentInPart_IsAnError)
{
	fCalls.CutNextSend(5);
	FetchRun run(Address(), fRecorder.get());
	EXPECT_EQ(1, run.Result());
	EXPECT_EQ("error: Failed to send handshake", Outcome());
}


// Without a signal, which would end the program.
TEST_F(TrackerFetchTest, TrackerGoneBeforeTheRequest_IsAnError)
{
	fCalls.BreakNextSend();
	FetchRun run(Address(), fRecorder.get());
	EXPECT_EQ(1, run.Result());
	EXPECT_EQ("error: Failed to send handshake", Outcome());
}


TEST_F(TrackerFetchTest, Lookup_IsForIPv4AndTheTrackersPort)
{
	EXPECT_EQ(0, Fetch(wire_tracker_header(4, 0)));
	ASSERT_EQ(1u, fCalls.Lookups().size());
	EXPECT_EQ(AF_INET, fCalls.Lookups()[0].family);
	EXPECT_EQ(SOCK_STREAM, fCalls.Lookups()[0].socketType);
	EXPECT_EQ(std::to_string(fServer.Port()), fCalls.Lookups()[0].port);
}


TEST_F(TrackerFetchTest, UnknownHost_IsTheResolversError)
{
	for (const char* address : {"no.such.host", "", "127.0.0.1:99999", "127.0.0.1:port", ":5498"}) {
		SCOPED_TRACE(address);
		fRecorder.reset(new MessageRecorder);
		FetchRun run(address, fRecorder.get());
		EXPECT_EQ(1, run.Result());
		EXPECT_EQ(std::string("error: ") + gai_strerror(EAI_NONAME), Outcome());
		EXPECT_EQ(address, fCalls.Lookups().back().host);
		EXPECT_EQ("5498", fCalls.Lookups().back().port);
	}
}


TEST_F(TrackerFetchTest, NoSocket_IsTheSystemsError)
{
	fCalls.FailNextSocket(EMFILE);
	FetchRun run(Address(), fRecorder.get());
	EXPECT_EQ(1, run.Result());
	EXPECT_EQ(std::string("error: ") + strerror(EMFILE), Outcome());
}


TEST_F(TrackerFetchTest, RefusedConnection_IsTheSystemsError)
{
	// Nobody listens on a port that was free a moment ago.
	const std::string address = "127.0.0.1:" + std::to_string(RawServer().Port());
	FetchRun run(address, fRecorder.get());
	EXPECT_EQ(1, run.Result());
	EXPECT_EQ(std::string("error: ") + strerror(ECONNREFUSED), Outcome());
}


TEST_F(TrackerFetchTest, ConnectTimeout_IsCalledOne)
{
	fCalls.FailNextConnect(EINPROGRESS);
	FetchRun run(Address(), fRecorder.get());
	EXPECT_EQ(1, run.Result());
	EXPECT_EQ(std::string("error: ") + strerror(ETIMEDOUT), Outcome());
}


TEST_F(TrackerFetchTest, SilentTracker_TimesOutAfterTenSeconds)
{
	fCalls.ShortenTimeouts(100);
	FetchRun run(Address(), fRecorder.get());
	ASSERT_TRUE(fServer.Accept());
	EXPECT_EQ(1, run.Result());
	EXPECT_EQ("error: Failed to read tracker response", Outcome());

	ASSERT_EQ(2u, fCalls.Timeouts().size());
	EXPECT_EQ(SO_RCVTIMEO, fCalls.Timeouts()[0].option);
	EXPECT_EQ(10, fCalls.Timeouts()[0].seconds);
	EXPECT_EQ(SO_SNDTIMEO, fCalls.Timeouts()[1].option);
	EXPECT_EQ(10, fCalls.Timeouts()[1].seconds);
}


TEST_F(TrackerFetchTest, SilenceInTheListing_EndsIt)
{
	fCalls.ShortenTimeouts(100);
	FetchRun run(Address(), fRecorder.get());
	ASSERT_TRUE(fServer.Accept());
	fServer.Send(wire_tracker_header(1000, 2) + wire_server_record("one", "") + "cut");
	EXPECT_EQ(0, run.Result());
	EXPECT_EQ("one done", Outcome());
}


TEST_F(TrackerFetchTest, HeaderThatDrips_IsGivenUpAfterTenSeconds)
{
	fCalls.StepClock(10);
	FetchRun run(Address(), fRecorder.get());
	ASSERT_TRUE(fServer.Accept());
	// One byte, and the time is over; the next one would have another ten seconds of the socket's.
	fServer.Send("H");
	EXPECT_TRUE(WaitFor(
		[&run] {
			return run.HasEnded();
		},
		5));
	EXPECT_EQ(1, run.Result());
	EXPECT_EQ("error: Failed to read tracker response", Outcome());
}


TEST_F(TrackerFetchTest, ListingThatDrips_EndsAfterAMinute)
{
	fCalls.StepClock(11);
	FetchRun run(Address(), fRecorder.get());
	ASSERT_TRUE(fServer.Accept());
	fServer.Send(wire_tracker_header(65535, 0) + wire_server_record("one", ""));
	EXPECT_TRUE(WaitFor([this, &run] {
		return !fServer.Send("x") || run.HasEnded();
	}));
	EXPECT_EQ(0, run.Result());
	EXPECT_EQ("done", Outcome().substr(Outcome().size() - 4));
}


TEST_F(TrackerFetchTest, StoppedBeforeItStarts_ConnectsToNobody)
{
	fCalls.HoldLookups();
	FetchRun run(Address(), fRecorder.get());
	EXPECT_TRUE(WaitFor([this] {
		return fCalls.Lookups().size() == 1;
	}));
	run.Stop();
	EXPECT_EQ(0, run.Result());
	EXPECT_EQ("done", Outcome());
	// The resolver answers when nobody is there any more.
	fCalls.ReleaseLookups();
	EXPECT_TRUE(WaitFor([] {
		return count_threads_named("HL:Resolve") == 0;
	}));
	EXPECT_FALSE(fServer.HasCaller());
}


TEST_F(TrackerFetchTest, StoppedWhileTheTrackerIsSilent_EndsAtOnce)
{
	for (const std::string& answer : {std::string(), wire_tracker_header(65535, 0)}) {
		SCOPED_TRACE(answer.size());
		fRecorder.reset(new MessageRecorder);
		FetchRun run(Address(), fRecorder.get());
		ASSERT_TRUE(fServer.Accept());
		EXPECT_EQ(kRequest, fServer.Read(kRequest.size()));
		const size_t before = fCalls.CountReceived();
		fServer.Send(answer);
		EXPECT_TRUE(WaitFor([&] {
			return fCalls.CountReceived() == before + answer.size();
		}));
		run.Stop();
		EXPECT_TRUE(WaitFor(
			[&run] {
				return run.HasEnded();
			},
			5));
		EXPECT_EQ(0, run.Result());
		EXPECT_EQ("done", Outcome());
	}
}


TEST_F(TrackerFetchTest, StoppedInTheListing_EndsWithTheNextByteAndPostsNone)
{
	FetchRun run(Address(), fRecorder.get());
	ASSERT_TRUE(fServer.Accept());
	const std::string answer = wire_tracker_header(65535, 0) + wire_server_record("one", "");
	fServer.Send(answer);
	EXPECT_TRUE(WaitFor([this, &answer] {
		return fCalls.CountReceived() == answer.size();
	}));
	run.running = false;
	// The tracker neither closes nor falls silent.
	EXPECT_TRUE(WaitFor([this, &run] {
		return !fServer.Send("x") || run.HasEnded();
	}));
	EXPECT_EQ(0, run.Result());
	EXPECT_EQ("done", Outcome());
}


TEST_F(TrackerFetchTest, WindowGone_IsNoTrouble)
{
	FetchRun run(Address(), fRecorder.get());
	ASSERT_TRUE(fServer.Accept());
	EXPECT_EQ(kRequest, fServer.Read(kRequest.size()));
	fRecorder.reset();
	fServer.Send(
		wire_tracker_header(0, 0) + wire_server_record("one", "") + wire_server_record("two", ""));
	fServer.Hangup();
	EXPECT_EQ(0, run.Result());
}


// #pragma mark - recv_full


class ReceiveFullTest : public testing::Test {
protected:
	ReceiveFullTest()
	{
		EXPECT_EQ(0, socketpair(AF_UNIX, SOCK_STREAM, 0, fSockets));
		fReceiver = Socket(fSockets[0], Socket::kIgnoreSignals);
	}
	~ReceiveFullTest() override { CloseSender(); }

	void Send(const std::string& bytes)
	{
		EXPECT_EQ(ssize_t(bytes.size()), write(fSockets[1], bytes.data(), bytes.size()));
	}

	void CloseSender()
	{
		if (fSockets[1] >= 0)
			close(fSockets[1]);
		fSockets[1] = -1;
	}

	int fSockets[2];
	Socket fReceiver;
	char fBuffer[8] = ".......";
};


TEST_F(ReceiveFullTest, EnoughBytes_FillTheBufferAndNoMore)
{
	Send("abcdefgh");
	EXPECT_EQ(5, recv_full(fReceiver, fBuffer, 5));
	EXPECT_STREQ("abcde..", fBuffer);
	EXPECT_EQ(3, recv_full(fReceiver, fBuffer, 3));
	EXPECT_STREQ("fghde..", fBuffer);
}


TEST_F(ReceiveFullTest, End_ReturnsWhatCameBefore)
{
	Send("abc");
	CloseSender();
	EXPECT_EQ(3, recv_full(fReceiver, fBuffer, 5));
	EXPECT_STREQ("abc....", fBuffer);
	EXPECT_EQ(0, recv_full(fReceiver, fBuffer, 5));
}


TEST_F(ReceiveFullTest, Failure_ReturnsAnErrorWhateverCameBefore)
{
	EXPECT_EQ(-1, recv_full(Socket(), fBuffer, 5));

	struct timeval timeout = {0, 1000};
	setsockopt(fSockets[0], SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof(timeout));
	Send("abc");
	EXPECT_EQ(-1, recv_full(fReceiver, fBuffer, 5));
}


TEST_F(ReceiveFullTest, NoLength_ReceivesNothing)
{
	EXPECT_EQ(0, recv_full(fReceiver, fBuffer, 0));
}
