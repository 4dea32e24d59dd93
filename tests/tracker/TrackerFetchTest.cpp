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
#include "BuiltMessage.h"
#include "InterposedCalls.h"
#include "MessageRecorder.h"
#include "ProcessCounts.h"
#include "RawServer.h"
#include "ThreadRun.h"
#include "WaitFor.h"
#include "WireBytes.h"
#include "WireRecords.h"


static const std::string kRequest = "HTRK" + wire16(1);
static const char* const kNotRead = "error: Failed to read tracker response";


/*!	A fetch on a thread of its own, as the window has it. */
class FetchRun {
public:
	FetchRun(const std::string& address, BLooper* target)
		: fFetch(address.c_str(), running, target),
		  fRun("TrackerFetch", [this] {
			  return fFetch.Run();
		  })
	{
	}

	bool HasEnded() const { return fRun.HasEnded(); }
	status_t Result(int seconds = 10) const { return fRun.Result(seconds); }

	void Stop()
	{
		running = false;
		fFetch.Stop();
	}

	std::atomic<bool> running{true};

private:
	TrackerFetch fFetch;
	ThreadRun fRun;
};


class TrackerFetchTest : public testing::Test {
protected:
	TrackerFetchTest()
		: fRecorder(new MessageRecorder)
	{
	}

	std::string Address() const { return "127.0.0.1:" + std::to_string(fServer.Port()); }

	// A fetch whose connection the tracker has accepted.
	std::unique_ptr<FetchRun> Start()
	{
		auto run = std::make_unique<FetchRun>(Address(), fRecorder.get());
		EXPECT_TRUE(fServer.Accept());
		return run;
	}

	// Lets a fetch meet an answer, which is all that the tracker says before it closes.
	status_t Fetch(const std::string& answer)
	{
		const auto run = Start();
		EXPECT_EQ(kRequest, fServer.Read(kRequest.size()));
		fServer.Send(answer);
		fServer.Hangup();
		return run->Result();
	}

	// Lets a fetch come to an end with that result and outcome by itself.
	void ExpectOutcome(status_t result, const std::string& outcome, const std::string& address)
	{
		fRecorder->Clear();
		EXPECT_EQ(result, FetchRun(address, fRecorder.get()).Result());
		EXPECT_EQ(outcome, Outcome());
	}

	// The same for one that meets an answer.
	void ExpectOutcomeOf(const std::string& answer, status_t result, const std::string& outcome)
	{
		fRecorder->Clear();
		EXPECT_EQ(result, Fetch(answer));
		EXPECT_EQ(outcome, Outcome());
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
	const std::string fTwo = wire_server_record("one", "") + wire_server_record("two", "");
};


TEST_F(TrackerFetchTest, Request_IsSixBytesAndNothingFollows)
{
	const auto run = Start();
	EXPECT_EQ("HTRK" + wire16(1), fServer.Read(6));
	fServer.Send(wire_tracker_header(5, 0) + "x");
	EXPECT_EQ("", fServer.ReadToEnd());
	EXPECT_EQ(0, run->Result());
	EXPECT_EQ("done", Outcome());
}


TEST_F(TrackerFetchTest, Server_IsPostedWithAllItsFields)
{
	const std::string record = wire_server_record("caf\xe9 <b>", "100 % &File", 65535, 40000);
	EXPECT_EQ(0, Fetch(wire_tracker_header(static_cast<uint16>(record.size() + 4), 1) + record));

	const std::vector<BMessage> messages = fRecorder->Messages();
	const BMessage server = built_message(kMsgTrackerServer, "name", "caf\xe9 <b>", "desc",
		"100 % &File", "ip", "10.20.30.40", "port", static_cast<int16>(65535), "users",
		static_cast<int16>(40000));
	ASSERT_EQ(2u, messages.size());
	EXPECT_EQ(MessageRecorder::Describe(&server), MessageRecorder::Describe(&messages[0]));
	fRecorder->ExpectLast(BMessage(kMsgTrackerDone));
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
	const auto run = Start();
	fServer.Send(wire_tracker_header(static_cast<uint16>(fTwo.size() + 4), 0) + fTwo
		+ wire_server_record("beyond", ""));
	EXPECT_TRUE(fServer.WaitForEnd());
	EXPECT_EQ(0, run->Result());
	EXPECT_EQ("one two done", Outcome());
}


TEST_F(TrackerFetchTest, SizeThatSaysNothing_ReadsUntilTheTrackerCloses)
{
	for (const uint16 size : {0, 3, 4}) {
		SCOPED_TRACE(size);
		ExpectOutcomeOf(wire_tracker_header(size, 2) + fTwo, 0, "one two done");
	}
}


TEST_F(TrackerFetchTest, ListingWithoutEnd_IsReadUpTo64KiB)
{
	const auto run = Start();
	fServer.Read(6);
	fServer.Send(wire_tracker_header(0, 0) + wire_zeros(70000));
	EXPECT_TRUE(fServer.WaitForEnd());
	EXPECT_EQ(0, run->Result());
	// Twelve bytes make a record, which leaves four of the 65,536.
	const std::vector<BMessage> messages = fRecorder->Messages();
	ASSERT_EQ(5461u + 1, messages.size());
	EXPECT_STREQ("0.0.0.0", messages[5460].GetString("ip"));
	EXPECT_EQ(static_cast<uint32>(kMsgTrackerDone), messages[5461].what);
}


TEST_F(TrackerFetchTest, ServerCount_LimitsTheRecords)
{
	for (const auto& [count, outcome] : {std::pair<uint16, const char*>(0, "one two done"),
			 {1, "one done"}, {2, "one two done"}, {65535, "one two done"}}) {
		SCOPED_TRACE(count);
		ExpectOutcomeOf(wire_tracker_header(static_cast<uint16>(fTwo.size() + 4), count) + fTwo, 0,
			outcome);
	}
}


TEST_F(TrackerFetchTest, ListingCutAtAnyByte_KeepsWhatIsWhole)
{
	const std::string first = wire_server_record("one", "1");
	const std::string listing = first + wire_server_record("two", "2");
	for (size_t length = 0; length < listing.size(); length++) {
		SCOPED_TRACE(length);
		ExpectOutcomeOf(wire_tracker_header(static_cast<uint16>(listing.size() + 4), 2)
				+ listing.substr(0, length),
			0, length >= first.size() ? "one done" : "done");
	}
}


TEST_F(TrackerFetchTest, OneByteAtATime_MakesNoDifference)
{
	const auto run = Start();
	EXPECT_EQ(kRequest, fServer.Read(kRequest.size()));
	EXPECT_TRUE(
		fServer.SendOneByOne(wire_tracker_header(0, 1) + wire_server_record("slow", "tracker")));
	fServer.Hangup();
	EXPECT_EQ(0, run->Result());
	EXPECT_EQ("slow done", Outcome());
}


TEST_F(TrackerFetchTest, HeaderCutAtAnyByte_IsAnError)
{
	for (size_t length = 0; length < 14; length++) {
		SCOPED_TRACE(length);
		ExpectOutcomeOf(wire_tracker_header(100, 1).substr(0, length), 1, kNotRead);
	}
}


TEST_F(TrackerFetchTest, Reset_IsAnError)
{
	const auto run = Start();
	fServer.Read(6);
	fServer.Reset();
	EXPECT_EQ(1, run->Result());
	EXPECT_EQ(kNotRead, Outcome());
}


TEST_F(TrackerFetchTest, WrongMagic_IsAnError)
{
	ExpectOutcomeOf("HTTP/1.1 400 Bad Request", 1, "error: Invalid tracker response");
}


TEST_F(TrackerFetchTest, RequestNotSentAsAWhole_IsAnError)
{
	fCalls.CutNextSend(5);
	ExpectOutcome(1, "error: Failed to send handshake", Address());
	// The tracker has gone before; without a signal, which would end the program.
	fCalls.BreakNextSend();
	ExpectOutcome(1, "error: Failed to send handshake", Address());
}


TEST_F(TrackerFetchTest, TrackerWithoutServers_IsLookedUpForIPv4AndItsPort)
{
	ExpectOutcomeOf(wire_tracker_header(4, 0), 0, "done");
	ASSERT_EQ(1u, fCalls.Lookups().size());
	EXPECT_EQ(AF_INET, fCalls.Lookups()[0].family);
	EXPECT_EQ(SOCK_STREAM, fCalls.Lookups()[0].socketType);
	EXPECT_EQ(std::to_string(fServer.Port()), fCalls.Lookups()[0].port);
}


TEST_F(TrackerFetchTest, UnknownHost_IsTheResolversError)
{
	for (const char* address : {"no.such.host", "", "127.0.0.1:99999", "127.0.0.1:port", ":5498"}) {
		SCOPED_TRACE(address);
		ExpectOutcome(1, std::string("error: ") + gai_strerror(EAI_NONAME), address);
		EXPECT_EQ(address, fCalls.Lookups().back().host);
		EXPECT_EQ("5498", fCalls.Lookups().back().port);
	}
}


TEST_F(TrackerFetchTest, NoConnection_IsTheSystemsError)
{
	fCalls.FailNextSocket(EMFILE);
	ExpectOutcome(1, std::string("error: ") + strerror(EMFILE), Address());
	// Nobody listens on a port that was free a moment ago.
	const std::string closed = "127.0.0.1:" + std::to_string(RawServer().Port());
	ExpectOutcome(1, std::string("error: ") + strerror(ECONNREFUSED), closed);
	// A time-out is called one.
	fCalls.FailNextConnect(EINPROGRESS);
	ExpectOutcome(1, std::string("error: ") + strerror(ETIMEDOUT), Address());
}


TEST_F(TrackerFetchTest, SilentTracker_TimesOutAfterTenSeconds)
{
	fCalls.ShortenTimeouts(100);
	const auto run = Start();
	EXPECT_EQ(1, run->Result());
	EXPECT_EQ(kNotRead, Outcome());

	EXPECT_EQ((InterposedCalls::Timeouts{{SO_RCVTIMEO, 10}, {SO_SNDTIMEO, 10}}),
		fCalls.SetTimeouts());
}


TEST_F(TrackerFetchTest, SilenceInTheListing_EndsIt)
{
	fCalls.ShortenTimeouts(100);
	const auto run = Start();
	fServer.Send(wire_tracker_header(1000, 2) + wire_server_record("one", "") + "cut");
	EXPECT_EQ(0, run->Result());
	EXPECT_EQ("one done", Outcome());
}


TEST_F(TrackerFetchTest, HeaderThatDrips_IsGivenUpAfterTenSeconds)
{
	fCalls.StepClock(10);
	const auto run = Start();
	// One byte, and the time is over; the next one would have another ten seconds of the socket's.
	fServer.Send("H");
	EXPECT_EQ(1, run->Result(5));
	EXPECT_EQ(kNotRead, Outcome());
}


TEST_F(TrackerFetchTest, ListingThatDrips_EndsAfterAMinute)
{
	fCalls.StepClock(11);
	const auto run = Start();
	fServer.Send(wire_tracker_header(65535, 0) + wire_server_record("one", ""));
	EXPECT_SOON(!fServer.Send("x") || run->HasEnded());
	EXPECT_EQ(0, run->Result());
	EXPECT_EQ("done", Outcome().substr(Outcome().size() - 4));
}


TEST_F(TrackerFetchTest, StoppedBeforeItStarts_ConnectsToNobody)
{
	fCalls.HoldLookups();
	FetchRun run(Address(), fRecorder.get());
	EXPECT_SOON(fCalls.Lookups().size() == 1);
	run.Stop();
	EXPECT_EQ(0, run.Result());
	EXPECT_EQ("done", Outcome());
	// The resolver answers when nobody is there any more.
	fCalls.ReleaseLookups();
	EXPECT_SOON(count_threads_named("HL:Resolve") == 0);
	EXPECT_FALSE(fServer.HasCaller());
}


TEST_F(TrackerFetchTest, StoppedWhileTheTrackerIsSilent_EndsAtOnce)
{
	for (const std::string& answer : {std::string(), wire_tracker_header(65535, 0)}) {
		SCOPED_TRACE(answer.size());
		fRecorder.reset(new MessageRecorder);
		const auto run = Start();
		EXPECT_EQ(kRequest, fServer.Read(kRequest.size()));
		const size_t before = fCalls.CountReceived();
		fServer.Send(answer);
		EXPECT_SOON(fCalls.CountReceived() == before + answer.size());
		run->Stop();
		EXPECT_EQ(0, run->Result(5));
		EXPECT_EQ("done", Outcome());
	}
}


TEST_F(TrackerFetchTest, StoppedInTheListing_EndsWithTheNextByteAndPostsNone)
{
	const auto run = Start();
	const std::string answer = wire_tracker_header(65535, 0) + wire_server_record("one", "");
	fServer.Send(answer);
	EXPECT_SOON(fCalls.CountReceived() == answer.size());
	run->running = false;
	// The tracker neither closes nor falls silent.
	EXPECT_SOON(!fServer.Send("x") || run->HasEnded());
	EXPECT_EQ(0, run->Result());
	EXPECT_EQ("done", Outcome());
}


TEST_F(TrackerFetchTest, WindowGone_IsNoTrouble)
{
	const auto run = Start();
	EXPECT_EQ(kRequest, fServer.Read(kRequest.size()));
	fRecorder.reset();
	fServer.Send(wire_tracker_header(0, 0) + fTwo);
	fServer.Hangup();
	EXPECT_EQ(0, run->Result());
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
		EXPECT_EQ(static_cast<ssize_t>(bytes.size()),
			write(fSockets[1], bytes.data(), bytes.size()));
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
