/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "AppMessages.h"
#include "InterposedCalls.h"
#include "TransferTest.h"
#include "WaitFor.h"
#include "WireBytes.h"
#include "WireRecords.h"


/*!	Downloads that meet trouble on this side, or a server that is not there or says nothing. */
class DownloadFailureTest : public TransferTest {
protected:
	// Whatever fails before the data does so in silence.
	void ExpectSilentFailure(DownloadInfo* info)
	{
		TransferRun run(DownloadThread, info);
		EXPECT_EQ(1, run.Result());
		EXPECT_EQ(0, fRecorder->CountMessages());
	}

	InterposedCalls fCalls;
};


TEST_F(DownloadFailureTest, UnknownHost_IsSilent)
{
	for (const char* address : {"", "no.such.host", "127.0.0.1:5500", "::1"}) {
		SCOPED_TRACE(address);
		DownloadInfo* info = NewDownload(PathOf("file"));
		info->address = address;
		ExpectSilentFailure(info);
	}
}


TEST_F(DownloadFailureTest, RefusedConnection_IsSilent)
{
	DownloadInfo* info = NewDownload(PathOf("file"));
	// Nobody listens on a port that was free a moment ago.
	info->port = ControlPortOf(RawServer());
	ExpectSilentFailure(info);
	EXPECT_FALSE(std::filesystem::exists(PathOf("file")));
}


TEST_F(DownloadFailureTest, NoWayToTheServer_IsSilent)
{
	fCalls.FailNextSocket(EMFILE);
	ExpectSilentFailure(NewDownload(PathOf("file")));
	fCalls.FailNextConnect(ENETUNREACH);
	ExpectSilentFailure(NewDownload(PathOf("file")));
	// The server has gone before the request.
	fCalls.BreakNextSend();
	ExpectSilentFailure(NewDownload(PathOf("file")));
}


TEST_F(DownloadFailureTest, RequestSentInPart_IsSilent)
{
	fCalls.CutNextSend(15);
	ExpectSilentFailure(NewDownload(PathOf("file")));
	ASSERT_TRUE(fServer->Accept());
	EXPECT_EQ("HTXF" + wire32(0x01020304) + wire32(0) + wire_zeros(3), fServer->ReadToEnd());
}


TEST_F(DownloadFailureTest, SilenceBeforeTheData_EndsAfterSixtySeconds)
{
	const std::string stream = wire_file_object("data");
	for (const size_t length : std::initializer_list<size_t>{0, 39, 60, stream.size() - 5}) {
		SCOPED_TRACE(length);
		InterposedCalls calls;
		calls.ShortenTimeouts(300);
		const auto run = Start(DownloadThread, NewDownload(PathOf("file")));
		fServer->Send(stream.substr(0, length));
		EXPECT_EQ(1, run->Result());
		EXPECT_EQ(0, fRecorder->CountMessages());
		EXPECT_EQ((InterposedCalls::Timeouts{{SO_RCVTIMEO, 60}}), calls.SetTimeouts());
	}
}


TEST_F(DownloadFailureTest, SilenceInTheData_IsAFailure)
{
	fCalls.ShortenTimeouts(300);
	const auto run = Start(DownloadThread, NewDownload(PathOf("file")));
	fServer->Send(
		wire_zeros(24) + wire_fork_header("INFO", 0) + wire_fork_header("DATA", 4) + "dat");
	EXPECT_EQ(0, run->Result());
	EXPECT_EQ("dat", ContentOf(PathOf("file")));
	ExpectOutcome(kMsgDownloadDone, "notes.txt", false);
}


TEST_F(DownloadFailureTest, LocalFileThatCannotBeMade_IsSilent)
{
	std::filesystem::create_directory(PathOf("folder"));
	for (const std::string& path : {PathOf("missing/file"), PathOf("folder"), std::string()}) {
		SCOPED_TRACE(path);
		const auto run = Start(DownloadThread, NewDownload(path));
		fServer->Send(wire_file_object("data"));
		EXPECT_TRUE(fServer->WaitForEnd());
		EXPECT_EQ(1, run->Result());
		EXPECT_EQ(0, fRecorder->CountMessages());
	}
}


// Opening the one would wait for somebody who reads from it, the other would take the data.
TEST_F(DownloadFailureTest, PipeOrDevice_IsNotOpened)
{
	ASSERT_EQ(0, mkfifo(PathOf("pipe").c_str(), 0600));
	std::filesystem::create_symlink("/dev/null", PathOf("device"));
	for (const char* name : {"pipe", "device"}) {
		SCOPED_TRACE(name);
		const auto run = Start(DownloadThread, NewDownload(PathOf(name)));
		fServer->Send(wire_file_object("data"));
		EXPECT_TRUE(fServer->WaitForEnd());
		EXPECT_EQ(1, run->Result());
		EXPECT_EQ(0, fRecorder->CountMessages());
	}
}


TEST_F(DownloadFailureTest, FullDisk_IsNotNoticed)
{
	// A file may have two bytes, as if the disk were full then.
	rlimit before;
	ASSERT_EQ(0, getrlimit(RLIMIT_FSIZE, &before));
	const rlimit twoBytes = {2, before.rlim_max};
	const auto handler = signal(SIGXFSZ, SIG_IGN);
	ASSERT_EQ(0, setrlimit(RLIMIT_FSIZE, &twoBytes));
	const status_t result = Serve(DownloadThread, NewDownload(PathOf("file")),
		wire_file_object("data"));
	ASSERT_EQ(0, setrlimit(RLIMIT_FSIZE, &before));
	signal(SIGXFSZ, handler);

	EXPECT_EQ(0, result);
	EXPECT_EQ("da", ContentOf(PathOf("file")));
	ExpectOutcome(kMsgDownloadDone, "notes.txt", true);
}


TEST_F(DownloadFailureTest, LocalFileRemovedOnTheWay_IsNotNoticed)
{
	const auto run = Start(DownloadThread, NewDownload(PathOf("file")));
	fServer->Send(
		wire_zeros(24) + wire_fork_header("INFO", 0) + wire_fork_header("DATA", 4) + "da");
	EXPECT_SOON(std::filesystem::remove(PathOf("file")));
	fServer->Send("ta");
	EXPECT_EQ(0, run->Result());
	EXPECT_FALSE(std::filesystem::exists(PathOf("file")));
	ExpectOutcome(kMsgDownloadDone, "notes.txt", true);
}


TEST_F(DownloadFailureTest, ExistingFile_IsReplaced)
{
	const std::string path = NewFile("file", "what was there before, and longer");
	EXPECT_EQ(0, Serve(DownloadThread, NewDownload(path), wire_file_object("data")));
	EXPECT_EQ("data", ContentOf(path));
}


TEST_F(DownloadFailureTest, ExistingFile_StaysUntilThereIsData)
{
	const std::string path = NewFile("file", "kept");
	const std::string stream = wire_file_object("data");
	EXPECT_EQ(1, Serve(DownloadThread, NewDownload(path), stream.substr(0, stream.size() - 5)));
	EXPECT_EQ("kept", ContentOf(path));
}


TEST_F(DownloadFailureTest, NameThatIsNotUtf8_KeepsItsBytes)
{
	for (const std::string& name : {std::string("caf\xe9 100%"), std::string("\x83\x65\x83\x58"),
			 std::string(255, '\xff'), std::string("\xf0\x9f\x8e\xa8")}) {
		SCOPED_TRACE(name);
		EXPECT_EQ(0,
			Serve(DownloadThread, NewDownload(PathOf(name), name), wire_file_object("data")));
		EXPECT_EQ("data", ContentOf(PathOf(name)));
		EXPECT_EQ(name, fRecorder->Messages().back().GetString("filename"));
	}
}


TEST_F(DownloadFailureTest, ControllerGone_IsNoTrouble)
{
	const auto run = Start(DownloadThread, NewDownload(PathOf("file")));
	QuitRecorder();
	fServer->Send(wire_file_object("data"));
	EXPECT_EQ(0, run->Result());
	EXPECT_EQ("data", ContentOf(PathOf("file")));
}


static std::atomic<int> sSignals(0);
static std::atomic<pid_t> sTransferThread(0);


static status_t
download_and_tell_thread(void* info)
{
	sTransferThread = static_cast<pid_t>(syscall(SYS_gettid));
	return DownloadThread(info);
}


TEST_F(DownloadFailureTest, SignalsWhileWaiting_AreNoErrors)
{
	struct sigaction action = {};
	action.sa_handler = [](int) {
		sSignals++;
	};
	struct sigaction before;
	ASSERT_EQ(0, sigaction(SIGUSR1, &action, &before));

	const auto run = Start(download_and_tell_thread, NewDownload(PathOf("file")));
	const std::string stream = wire_file_object("data");
	for (size_t i = 0; i < stream.size(); i += 8) {
		const int count = sSignals;
		// Again and again: ThreadSanitizer keeps one that comes right before a call that blocks
		// until after that call.
		EXPECT_TRUE(WaitFor([count] {
			EXPECT_EQ(0, syscall(SYS_tgkill, getpid(), sTransferThread.load(), SIGUSR1));
			return sSignals > count;
		}));
		fServer->Send(stream.substr(i, 8));
	}
	EXPECT_EQ(0, run->Result());
	EXPECT_EQ("data", ContentOf(PathOf("file")));
	EXPECT_EQ(0, sigaction(SIGUSR1, &before, NULL));
}
