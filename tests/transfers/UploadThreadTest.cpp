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
#include "WireBytes.h"
#include "WireRecords.h"


class UploadThreadTest : public TransferTest {
protected:
	// Everything that a server receives of an upload that nothing disturbs.
	std::string Upload(UploadInfo* info)
	{
		TransferRun run(UploadThread, info);
		EXPECT_TRUE(fServer->Accept());
		std::string bytes = fServer->ReadToEnd();
		EXPECT_EQ(0, run.Result());
		return bytes;
	}

	// What it must be for a name that is not cut.
	static std::string Expected(const std::string& name, const std::string& data)
	{
		const std::string object = wire_file_object(data, wire_information_fork(name));
		return "HTXF" + wire32(0x01020304) + wire32(static_cast<uint32>(object.size())) + wire32(0)
			+ object;
	}
};


TEST_F(UploadThreadTest, Stream_IsRequestAndFileObject)
{
	const std::string path = NewFile("local name", "Hello!");
	const std::string expected = "HTXF" + wire32(0x01020304) + wire32(74 + 9 + 6 + 56) + wire32(0)
		+ "FILP" + wire16(1) + wire_zeros(16) + wire16(2) + "INFO" + wire32(0) + wire32(0)
		+ wire32(74 + 9) + "AMAC" + "????" + "????" + wire32(0) + wire32(0) + wire_zeros(32)
		+ wire_zeros(8) + wire_zeros(8) + wire16(0) + wire16(9) + "photo.jpg" + wire16(0) + "DATA"
		+ wire32(0) + wire32(0) + wire32(6) + "Hello!";
	EXPECT_EQ(expected, Upload(NewUpload(path, "photo.jpg")));
	ExpectOutcome(kMsgUploadDone, "photo.jpg", true);
}


TEST_F(UploadThreadTest, TransferPort_IsTheNextOne)
{
	const InterposedCalls calls;
	Upload(NewUpload(NewFile("file", "data")));
	ASSERT_EQ(1u, calls.Lookups().size());
	EXPECT_EQ("127.0.0.1", calls.Lookups()[0].host);
	EXPECT_EQ(std::to_string(fServer->Port()), calls.Lookups()[0].port);
}


TEST_F(UploadThreadTest, SendTimeout_IsSixtySeconds)
{
	const InterposedCalls calls;
	Upload(NewUpload(NewFile("file", "data")));
	EXPECT_EQ((InterposedCalls::Timeouts{{SO_SNDTIMEO, 60}}), calls.SetTimeouts());
}


TEST_F(UploadThreadTest, Data_OfSizesAroundTheBufferArrives)
{
	for (const size_t size : {0, 1, 16383, 16384, 16385, 100000}) {
		SCOPED_TRACE(size);
		const std::string data = PatternBytes(size, size);
		EXPECT_TRUE(Expected("name", data) == Upload(NewUpload(NewFile("file", data), "name")));
		EXPECT_TRUE(fRecorder->Messages().back().GetBool("success"));
	}
}


TEST_F(UploadThreadTest, LinkToAFile_SendsTheFileUnderTheLinksName)
{
	const std::string data = PatternBytes(0, 5000);
	const std::string link = NewFile("file", data) + " link";
	std::filesystem::create_symlink("file", link);
	EXPECT_TRUE(Expected("file link", data) == Upload(NewUpload(link, "file link")));
	ExpectOutcome(kMsgUploadDone, "file link", true);
}


TEST_F(UploadThreadTest, Name_UpTo128BytesIsSentAsItStands)
{
	const std::string path = NewFile("file", "data");
	for (const std::string& name : {std::string(), std::string("n"), std::string(127, 'n'),
			 std::string(128, 'n'), std::string("\x83\x65\x83\x58\x83\x67 caf\xe9 100%")}) {
		SCOPED_TRACE(name);
		EXPECT_EQ(Expected(name, "data"), Upload(NewUpload(path, name)));
		EXPECT_EQ(name, fRecorder->Messages().back().GetString("filename"));
	}
}


TEST_F(UploadThreadTest, LongerName_IsCutTo128Bytes)
{
	const std::string path = NewFile("file", "data");
	// The cut is at the byte, wherever that falls in a character.
	const std::string mixed = "a" + std::string("\xc3\xa9", 2);
	std::string accented;
	while (accented.size() < 300)
		accented += mixed;
	for (const std::string& name : {std::string(129, 'n'), std::string(255, 'n'), accented}) {
		SCOPED_TRACE(name);
		const std::string bytes = Upload(NewUpload(path, name));
		EXPECT_EQ(Expected(name.substr(0, 128), "data"), bytes);
		EXPECT_EQ(wire_fork_header("INFO", 202), bytes.substr(16 + 24, 16));
		EXPECT_EQ(name, fRecorder->Messages().back().GetString("filename"));
	}
}


TEST_F(UploadThreadTest, FileOver4GiB_WrapsTheSizesAndGoesOn)
{
	static const uint64 kSize = (static_cast<uint64>(1) << 32) + 10;

	const std::string path = NewFile("file", "sparse");
	std::filesystem::resize_file(path, kSize);
	const auto run = Start(UploadThread, NewUpload(path, "name"));
	EXPECT_EQ("HTXF" + wire32(0x01020304) + wire32(74 + 4 + 10 + 56) + wire32(0),
		fServer->Read(16));
	fServer->Read(24 + 16 + 74 + 4);
	EXPECT_EQ(wire_fork_header("DATA", 10), fServer->Read(16));
	// The bytes do not end with the ten that are announced.
	EXPECT_TRUE("sparse" + wire_zeros(1000000) == fServer->Read(1000006));
	fServer->Hangup();
	EXPECT_EQ(0, run->Result());
	ExpectOutcome(kMsgUploadDone, "name", false);
}


TEST_F(UploadThreadTest, RequestSentInParts_ArrivesWhole)
{
	InterposedCalls calls;
	calls.CutNextSend(5);
	EXPECT_EQ(Expected("name", "data"), Upload(NewUpload(NewFile("file", "data"), "name")));
	ExpectOutcome(kMsgUploadDone, "name", true);
}


TEST_F(UploadThreadTest, SixtyMebibytes_ArriveIdenticalInConstantMemory)
{
	static const uint32 kPiece = 1024 * 1024;
	static const uint32 kPieces = 60;
	static const size_t kMostGrowth = 8 * kPiece;

	const std::string piece = PatternBytes(0, kPiece);
	std::string path;
	{
		std::string content;
		for (uint32 i = 0; i < kPieces; i++)
			content += piece;
		path = NewFile("large", content + "!");
	}
	const size_t peakBefore = PeakMemory();

	const auto run = Start(UploadThread, NewUpload(path, "name"));
	fServer->Read(16 + 24 + 16 + 74 + 4);
	EXPECT_EQ(wire_fork_header("DATA", kPieces * kPiece + 1), fServer->Read(16));
	for (uint32 i = 0; i < kPieces; i++)
		ASSERT_TRUE(piece == fServer->Read(kPiece)) << "piece " << i;
	EXPECT_EQ("!", fServer->ReadToEnd());
	EXPECT_EQ(0, run->Result());
	EXPECT_LT(PeakMemory(), peakBefore + kMostGrowth);
	ExpectOutcome(kMsgUploadDone, "name", true);
}


TEST_F(UploadThreadTest, TenAtOnce_AllArrive)
{
	static const size_t kCount = 10;

	RawServer servers[kCount];
	std::unique_ptr<TransferRun> runs[kCount];
	for (size_t i = 0; i < kCount; i++) {
		const std::string name = std::to_string(i);
		UploadInfo* info = NewUpload(NewFile(name, PatternBytes(i * 1000, 300000)), name);
		info->port = ControlPortOf(servers[i]);
		runs[i] = std::make_unique<TransferRun>(UploadThread, info);
		ASSERT_TRUE(servers[i].Accept());
	}
	std::string received[kCount];
	for (int part = 0; part < 3; part++) {
		for (size_t i = 0; i < kCount; i++)
			received[i] += servers[i].Read(100000);
	}
	for (size_t i = 0; i < kCount; i++) {
		received[i] += servers[i].ReadToEnd();
		EXPECT_EQ(0, runs[i]->Result());
		EXPECT_TRUE(Expected(std::to_string(i), PatternBytes(i * 1000, 300000)) == received[i]);
	}
	EXPECT_EQ(static_cast<int32>(kCount), fRecorder->CountMessages());
}
