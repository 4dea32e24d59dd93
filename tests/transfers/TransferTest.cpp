/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransferTest.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <Message.h>

#include "RecordWatch.h"
#include "WaitFor.h"


static const uint32 kReference = 0x01020304;


TransferRun::TransferRun(thread_func entry, void* record)
	: fEntry(entry),
	  fRecord(record),
	  fWatch(WatchRecord(record)),
	  fResult(-1),
	  fHasEnded(false)
{
	EXPECT_EQ(B_OK, resume_thread(spawn_thread(_Entry, "transfer", B_NORMAL_PRIORITY, this)));
}


TransferRun::~TransferRun()
{
	EXPECT_TRUE(WaitFor(
		[this] {
			return HasEnded();
		},
		60))
		<< "a transfer that does not end";
}


status_t
TransferRun::Result()
{
	if (!WaitFor([this] {
			return HasEnded();
		}))
		return -1;
	EXPECT_FALSE(IsRecordWatched(fWatch)) << "the record is left behind";
	return fResult;
}


status_t
TransferRun::_Entry(void* data)
{
	TransferRun* run = static_cast<TransferRun*>(data);
	run->fResult = run->fEntry(run->fRecord);
	run->fHasEnded = true;
	return B_OK;
}


// #pragma mark -


TransferTest::TransferTest()
	: fServer(std::make_unique<RawServer>()),
	  fRecorder(new MessageRecorder),
	  fDescriptorsBefore(0),
	  fThreadsBefore(0)
{
	std::string folder = testing::TempDir() + "transfers.XXXXXX";
	if (mkdtemp(folder.data()) != NULL)
		fFolder = folder;
}


TransferTest::~TransferTest()
{
	std::filesystem::remove_all(fFolder);
}


void
TransferTest::SetUp()
{
	ASSERT_FALSE(fFolder.empty());
	// The recorder's thread runs once it has answered.
	ASSERT_EQ(0, fRecorder->CountMessages());
	fDescriptorsBefore = _CountDescriptors();
	fThreadsBefore = _CountThreads();
}


void
TransferTest::TearDown()
{
	if (fRecorder == NULL)
		fThreadsBefore--;
	fServer->Hangup();
	EXPECT_TRUE(WaitFor([this] {
		return _CountThreads() == fThreadsBefore;
	})) << _CountThreads()
		<< " threads, before " << fThreadsBefore;
	EXPECT_EQ(fDescriptorsBefore, _CountDescriptors());
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


std::string
TransferTest::NewFile(const std::string& name, const std::string& content) const
{
	std::ofstream(PathOf(name), std::ios::binary) << content;
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
	const BMessage message = fRecorder->OnlyMessage();
	EXPECT_EQ(what, message.what);
	EXPECT_EQ(2, message.CountNames(B_ANY_TYPE));
	EXPECT_EQ(name, message.GetString("filename", "nothing"));
	EXPECT_TRUE(message.HasData("success", B_BOOL_TYPE));
	EXPECT_EQ(success, message.GetBool("success", !success));
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


static size_t
count_entries(const char* folder)
{
	const std::filesystem::directory_iterator entries(folder);
	return size_t(std::distance(begin(entries), end(entries)));
}


size_t
TransferTest::_CountDescriptors()
{
	return count_entries("/proc/self/fd");
}


size_t
TransferTest::_CountThreads()
{
	return count_entries("/proc/self/task");
}
