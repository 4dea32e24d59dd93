/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cerrno>
#include <filesystem>
#include <fstream>

#include "AppMessages.h"
#include "InterposedCalls.h"
#include "TransferTest.h"


// More than all buffers between the two sides hold, so that the sender is still at work.
static const uint64 kLargeSize = 64 * 1024 * 1024;

// The request and what stands before the data of a file called "notes.txt".
static const size_t kDescriptionSize = 16 + 24 + 16 + 74 + 9 + 16;


/*!	Uploads that fail: every one of them says so, once. */
class UploadFailureTest : public TransferTest {
protected:
	void ExpectFailure(UploadInfo* info, status_t result)
	{
		TransferRun run(UploadThread, info);
		EXPECT_EQ(result, run.Result());
		ExpectOutcome(kMsgUploadDone, "notes.txt", false);
		fRecorder->Clear();
	}

	// An upload of a large file that the server has read the description of.
	void StartLarge(const std::string& path)
	{
		fRun = Start(UploadThread, NewUpload(path));
		EXPECT_EQ(kDescriptionSize, fServer->Read(kDescriptionSize).size());
	}

	void ExpectEnd(bool success)
	{
		EXPECT_EQ(0, fRun->Result());
		ExpectOutcome(kMsgUploadDone, "notes.txt", success);
	}

	// Takes up no room on the disk.
	std::string NewLargeFile()
	{
		std::string path = NewFile("large", "");
		std::filesystem::resize_file(path, kLargeSize);
		return path;
	}

	InterposedCalls fCalls;
	std::unique_ptr<TransferRun> fRun;
};


TEST_F(UploadFailureTest, MissingFileOrNoPath_IsReportedWithoutConnecting)
{
	ExpectFailure(NewUpload(PathOf("missing")), 1);
	ExpectFailure(NewUpload(""), 1);
	EXPECT_TRUE(fCalls.Lookups().empty());
	EXPECT_FALSE(fServer->HasCaller());
}


TEST_F(UploadFailureTest, Folder_IsReported)
{
	TransferRun run(UploadThread, NewUpload(fFolder.Path()));
	EXPECT_LE(0, run.Result());
	ExpectOutcome(kMsgUploadDone, "notes.txt", false);
}


TEST_F(UploadFailureTest, NoWayToTheServer_IsReported)
{
	const std::string path = NewFile("file", "data");
	fCalls.FailNextSocket(EMFILE);
	ExpectFailure(NewUpload(path), 1);
	fCalls.FailNextConnect(ETIMEDOUT);
	ExpectFailure(NewUpload(path), 1);

	UploadInfo* unknown = NewUpload(path);
	unknown->address = "no.such.host";
	ExpectFailure(unknown, 1);
	UploadInfo* refused = NewUpload(path);
	refused->port = ControlPortOf(RawServer());
	ExpectFailure(refused, 1);
}


TEST_F(UploadFailureTest, NothingSentAtAll_IsReported)
{
	fCalls.CutNextSend(0);
	ExpectFailure(NewUpload(NewFile("file", "data")), 0);
	ASSERT_TRUE(fServer->Accept());
	EXPECT_EQ("", fServer->ReadToEnd());
}


TEST_F(UploadFailureTest, ServerGoneAtAnyStage_IsReportedWithoutASignal)
{
	const std::string path = NewLargeFile();
	int32 outcomes = 0;
	for (size_t length = 0; length <= kDescriptionSize; length++) {
		SCOPED_TRACE(length);
		const auto run = Start(UploadThread, NewUpload(path));
		EXPECT_EQ(length, fServer->Read(length).size());
		fServer->Hangup();
		EXPECT_EQ(0, run->Result());
		ASSERT_EQ(++outcomes, fRecorder->CountMessages());
		EXPECT_FALSE(fRecorder->Messages().back().GetBool("success", true));
	}
}


TEST_F(UploadFailureTest, ServerThatReadsNothing_TimesOut)
{
	fCalls.ShortenTimeouts(300);
	const auto run = Start(UploadThread, NewUpload(NewLargeFile()));
	EXPECT_EQ(0, run->Result());
	ExpectOutcome(kMsgUploadDone, "notes.txt", false);
}


TEST_F(UploadFailureTest, FileThatShrinks_IsReported)
{
	const std::string path = NewLargeFile();
	StartLarge(path);
	std::filesystem::resize_file(path, 1000);
	EXPECT_LT(fServer->ReadToEnd().size(), kLargeSize);
	ExpectEnd(false);
}


TEST_F(UploadFailureTest, FileThatGrows_IsSentAsLongAsItWas)
{
	const std::string path = NewLargeFile();
	StartLarge(path);
	std::ofstream(path, std::ios::app) << "more";
	EXPECT_EQ(kLargeSize, fServer->ReadToEnd().size());
	ExpectEnd(true);
}


TEST_F(UploadFailureTest, FileThatVanishes_IsSentToItsEnd)
{
	const std::string path = NewLargeFile();
	StartLarge(path);
	std::filesystem::remove(path);
	EXPECT_EQ(kLargeSize, fServer->ReadToEnd().size());
	ExpectEnd(true);
}


TEST_F(UploadFailureTest, ControllerGone_IsNoTrouble)
{
	const auto run = Start(UploadThread, NewUpload(NewFile("file", "data")));
	QuitRecorder();
	EXPECT_EQ(kDescriptionSize + 4, fServer->ReadToEnd().size());
	EXPECT_EQ(0, run->Result());
}
