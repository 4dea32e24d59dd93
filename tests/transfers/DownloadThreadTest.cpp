/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <filesystem>
#include <sys/socket.h>

#include "AppMessages.h"
#include "InterposedCalls.h"
#include "PatternBytes.h"
#include "TransferTest.h"
#include "WaitFor.h"
#include "WireBytes.h"
#include "WireRecords.h"


class DownloadThreadTest : public TransferTest {
protected:
	// Lets a download meet the stream, which ends with it.
	status_t Download(DownloadInfo* info, const std::string& stream)
	{
		return Serve(DownloadThread, info, stream);
	}
};


TEST_F(DownloadThreadTest, Request_IsSixteenBytesAndNothingFollows)
{
	const auto run = Start(DownloadThread, NewDownload(PathOf("file")));
	EXPECT_EQ("HTXF" + wire32(0x01020304) + wire32(0) + wire32(0), fServer->Read(16));
	fServer->Send(wire_file_object("data"));
	EXPECT_EQ("", fServer->ReadToEnd());
	EXPECT_EQ(0, run->Result());
}


TEST_F(DownloadThreadTest, TransferPort_IsTheNextOne)
{
	const InterposedCalls calls;
	EXPECT_EQ(0, Download(NewDownload(PathOf("file")), wire_file_object("data")));
	const std::vector<InterposedCalls::Lookup> lookups = calls.Lookups();
	ASSERT_EQ(1u, lookups.size());
	EXPECT_EQ("127.0.0.1", lookups[0].host);
	EXPECT_EQ(std::to_string(fServer->Port()), lookups[0].port);
	EXPECT_EQ(AF_INET, lookups[0].family);
	EXPECT_EQ(SOCK_STREAM, lookups[0].socketType);
}


TEST_F(DownloadThreadTest, HighestControlPort_LeadsNowhere)
{
	const InterposedCalls calls;
	DownloadInfo* info = NewDownload(PathOf("file"));
	info->port = 65535;
	TransferRun run(DownloadThread, info);
	EXPECT_EQ(1, run.Result());
	ASSERT_EQ(1u, calls.Lookups().size());
	EXPECT_EQ("65536", calls.Lookups()[0].port);
	EXPECT_EQ(0, fRecorder->CountMessages());
}


TEST_F(DownloadThreadTest, Data_OfSizesAroundTheBufferArrives)
{
	for (const size_t size : {0, 1, 16383, 16384, 16385, 100000}) {
		SCOPED_TRACE(size);
		const std::string data = PatternBytes(size, size);
		const std::string path = PathOf(std::to_string(size));
		EXPECT_EQ(0, Download(NewDownload(path), wire_file_object(data)));
		EXPECT_TRUE(data == ContentOf(path));
		EXPECT_TRUE(fRecorder->Messages().back().GetBool("success"));
	}
}


TEST_F(DownloadThreadTest, InformationFork_OfAnySizeIsSkipped)
{
	for (const size_t size : {0, 1, 74, 511, 512, 513, 1024, 65535}) {
		SCOPED_TRACE(size);
		const std::string path = PathOf(std::to_string(size));
		EXPECT_EQ(0, Download(NewDownload(path), wire_file_object("data", PatternBytes(0, size))));
		EXPECT_EQ("data", ContentOf(path));
	}
}


TEST_F(DownloadThreadTest, InformationForkOver65535_IsSkippedByItsLow16Bits)
{
	// 65,546 bytes are announced and sent. Ten are skipped, the next sixteen taken for the header
	// of the data.
	const std::string misread = wire_fork_header("LOST", 3) + "abc";
	const std::string information = wire_zeros(10) + misread
		+ wire_zeros(65546 - 10 - misread.size());
	const std::string path = PathOf("file");
	EXPECT_EQ(0, Download(NewDownload(path), wire_file_object("data", information)));
	EXPECT_EQ("abc", ContentOf(path));
	ExpectOutcome(kMsgDownloadDone, "notes.txt", true);
}


TEST_F(DownloadThreadTest, NoMagicOrType_IsLookedAt)
{
	std::string stream = wire_zeros(24) + wire_fork_header("what", 3) + "abc"
		+ wire_fork_header("ever", 4) + "data";
	const std::string path = PathOf("file");
	EXPECT_EQ(0, Download(NewDownload(path), stream));
	EXPECT_EQ("data", ContentOf(path));
}


TEST_F(DownloadThreadTest, OneByteAtATime_MakesNoDifference)
{
	const std::string path = PathOf("file");
	const auto run = Start(DownloadThread, NewDownload(path));
	EXPECT_TRUE(fServer->SendOneByOne(wire_file_object("byte by byte")));
	EXPECT_EQ(0, run->Result());
	EXPECT_EQ("byte by byte", ContentOf(path));
	ExpectOutcome(kMsgDownloadDone, "notes.txt", true);
}


TEST_F(DownloadThreadTest, ResourceFork_IsNeverRead)
{
	const std::string path = PathOf("file");
	const auto run = Start(DownloadThread, NewDownload(path));
	fServer->Send(wire_file_object("data") + wire_fork_header("MACR", 1000000));
	// The end comes without the million bytes.
	EXPECT_TRUE(fServer->WaitForEnd());
	EXPECT_EQ(0, run->Result());
	EXPECT_EQ("data", ContentOf(path));
	ExpectOutcome(kMsgDownloadDone, "notes.txt", true);
}


TEST_F(DownloadThreadTest, StreamCutAtAnyByte_IsSilentBeforeTheDataAndFailsInIt)
{
	const std::string data = "cut";
	const std::string stream = wire_file_object(data);
	const size_t dataStart = stream.size() - data.size();
	int32 outcomes = 0;
	for (size_t length = 0; length < stream.size(); length++) {
		SCOPED_TRACE(length);
		const std::string path = PathOf(std::to_string(length));
		const bool reachesData = length >= dataStart;
		EXPECT_EQ(reachesData ? 0 : 1, Download(NewDownload(path), stream.substr(0, length)));
		EXPECT_EQ(reachesData, std::filesystem::exists(path));
		outcomes += reachesData ? 1 : 0;
		if (reachesData) {
			EXPECT_EQ(data.substr(0, length - dataStart), ContentOf(path));
		}
		ASSERT_EQ(outcomes, fRecorder->CountMessages());
		EXPECT_FALSE(outcomes > 0 && fRecorder->Messages().back().GetBool("success", true));
	}
}


TEST_F(DownloadThreadTest, ConnectionResetInTheData_Fails)
{
	const auto run = Start(DownloadThread, NewDownload(PathOf("file")));
	fServer->Read(16);
	fServer->Send(wire_file_object("data").substr(0, wire_file_object("data").size() - 1));
	EXPECT_SOON(ContentOf(PathOf("file")) == "dat");
	fServer->Reset();
	EXPECT_EQ(0, run->Result());
	EXPECT_EQ("dat", ContentOf(PathOf("file")));
	ExpectOutcome(kMsgDownloadDone, "notes.txt", false);
}


TEST_F(DownloadThreadTest, LengthOf4GiB_IsTakenAsItStands)
{
	const std::string stream = wire_zeros(24) + wire_fork_header("INFO", 0)
		+ wire_fork_header("DATA", 0xffffffff);
	EXPECT_EQ(0, Download(NewDownload(PathOf("file")), stream + "abc"));
	EXPECT_EQ("abc", ContentOf(PathOf("file")));
	ExpectOutcome(kMsgDownloadDone, "notes.txt", false);
}


TEST_F(DownloadThreadTest, SixtyMebibytes_ArriveIdenticalInConstantMemory)
{
	static const uint32 kPiece = 1024 * 1024;
	static const uint32 kSize = 60 * kPiece + 1;
	static const size_t kMostGrowth = 8 * kPiece;

	const std::string piece = PatternBytes(0, kPiece);
	const std::string path = PathOf("large");
	const auto run = Start(DownloadThread, NewDownload(path));
	fServer->Send(wire_zeros(24) + wire_fork_header("INFO", 0) + wire_fork_header("DATA", kSize));
	const size_t peakBefore = PeakMemory();
	for (uint32 sent = 0; sent + 1 < kSize; sent += kPiece)
		ASSERT_TRUE(fServer->Send(piece));
	ASSERT_TRUE(fServer->Send("!"));
	EXPECT_EQ(0, run->Result());
	EXPECT_LT(PeakMemory(), peakBefore + kMostGrowth);

	EXPECT_TRUE(FileRepeats(path, piece, kSize / kPiece, "!"));
	ExpectOutcome(kMsgDownloadDone, "notes.txt", true);
}


TEST_F(DownloadThreadTest, TenAtOnce_AllArrive)
{
	static const size_t kCount = 10;
	static const size_t kPiece = 100000;

	RawServer servers[kCount];
	std::unique_ptr<TransferRun> runs[kCount];
	for (size_t i = 0; i < kCount; i++) {
		const std::string name = std::to_string(i);
		DownloadInfo* info = NewDownload(PathOf(name), name);
		info->port = ControlPortOf(servers[i]);
		runs[i] = std::make_unique<TransferRun>(DownloadThread, info);
		ASSERT_TRUE(servers[i].Accept());
	}
	for (RawServer& server : servers)
		server.Send(
			wire_zeros(24) + wire_fork_header("INFO", 0) + wire_fork_header("DATA", 3 * kPiece));
	for (size_t piece = 0; piece < 3; piece++) {
		for (size_t i = 0; i < kCount; i++)
			ASSERT_TRUE(servers[i].Send(PatternBytes(i * 1000 + piece * kPiece, kPiece)));
	}
	for (size_t i = 0; i < kCount; i++) {
		EXPECT_EQ(0, runs[i]->Result());
		const std::string data = ContentOf(PathOf(std::to_string(i)));
		EXPECT_TRUE(data == PatternBytes(i * 1000, 3 * kPiece)) << "file " << i;
	}
	EXPECT_EQ(static_cast<int32>(kCount), fRecorder->CountMessages());
}
