/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransferTest.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "BuiltMessage.h"
#include "ProcessCounts.h"
#include "RecordWatch.h"
#include "WaitFor.h"
#include "WireBytes.h"


static const uint32 kReference = 0x01020304;


TransferRun::TransferRun(thread_func entry, void* record)
	: fWatch(WatchRecord(record)),
	  fRun("transfer", [entry, record] {
		  return entry(record);
	  })
{
}


status_t
TransferRun::Result() const
{
	const status_t result = fRun.Result();
	EXPECT_FALSE(IsRecordWatched(fWatch)) << "the record is left behind";
	return result;
}


// #pragma mark -


TransferTest::TransferTest()
	: fServer(std::make_unique<RawServer>()),
	  fRecorder(new MessageRecorder),
	  fDescriptorsBefore(0),
	  fThreadsBefore(0)
{
}


void
TransferTest::SetUp()
{
	// The recorder's thread runs once it has answered.
	ASSERT_EQ(0, fRecorder->CountMessages());
	fDescriptorsBefore = count_descriptors();
	fThreadsBefore = count_threads();
}


void
TransferTest::TearDown()
{
	if (fRecorder == NULL)
		fThreadsBefore--;
	fServer->Hangup();
	EXPECT_SOON(count_threads() == fThreadsBefore)
		<< count_threads() << " threads, before " << fThreadsBefore;
	EXPECT_EQ(fDescriptorsBefore, count_descriptors());

	// Its thread leaves the system's list a moment later, and the next case counts.
	if (fRecorder != NULL) {
		fRecorder.reset();
		EXPECT_SOON(count_threads() < fThreadsBefore);
	}
}


DownloadInfo*
TransferTest::NewDownload(const std::string& localPath, const std::string& name)
{
	return new DownloadInfo{"127.0.0.1", ControlPortOf(*fServer), kReference, 0, localPath.c_str(),
		name.c_str(), fRecorder.get()};
}


UploadInfo*
TransferTest::NewUpload(const std::string& localPath, const std::string& name)
{
	return new UploadInfo{"127.0.0.1", ControlPortOf(*fServer), kReference, localPath.c_str(),
		name.c_str(), fRecorder.get()};
}


BannerDLInfo*
TransferTest::NewBanner(uint32 size)
{
	return new BannerDLInfo{"127.0.0.1", ControlPortOf(*fServer), kReference, size,
		fRecorder.get()};
}


std::unique_ptr<TransferRun>
TransferTest::Start(thread_func entry, void* record)
{
	auto run = std::make_unique<TransferRun>(entry, record);
	EXPECT_TRUE(fServer->Accept());
	return run;
}


status_t
TransferTest::Serve(thread_func entry, void* record, const std::string& answer)
{
	const auto run = Start(entry, record);
	EXPECT_EQ("HTXF" + wire32(kReference) + wire_zeros(8), fServer->Read(16));
	fServer->Send(answer);
	fServer->Hangup();
	return run->Result();
}


std::string
TransferTest::NewFile(const std::string& name, const std::string& content) const
{
	fFolder.AddFile(name, content);
	return PathOf(name);
}


std::string
TransferTest::ContentOf(const std::string& path)
{
	std::ifstream file(path, std::ios::binary);
	if (!file)
		return "no file";
	return std::string(std::istreambuf_iterator<char>(file), {});
}


void
TransferTest::ExpectOutcome(uint32 what, const std::string& name, bool success)
{
	fRecorder->ExpectOnly(built_message(what, "filename", name, "success", success));
}


void
TransferTest::QuitRecorder()
{
	fRecorder.reset();
}


size_t
TransferTest::PeakMemory()
{
	std::ifstream status("/proc/self/status");
	std::string line;
	while (std::getline(status, line)) {
		if (line.rfind("VmHWM:", 0) == 0)
			return strtoul(line.c_str() + 6, NULL, 10) * 1024;
	}
	return 0;
}
