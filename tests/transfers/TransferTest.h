/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRANSFER_TEST_H
#define TRANSFER_TEST_H


#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <OS.h>

#include "MessageRecorder.h"
#include "RawServer.h"
#include "TemporaryFolder.h"
#include "ThreadRun.h"
#include "TransferThreads.h"


/*!	One running transfer. Its record belongs to the thread. */
class TransferRun {
public:
	TransferRun(thread_func entry, void* record);

	// Waits for the end of the thread, which must have deleted its record; -1 if there is none
	// within ten seconds.
	status_t Result() const;

private:
	uint64 fWatch;
	ThreadRun fRun;
};


/*!	A server on the test's thread, a recorder in the controller's place and a folder for files. Each
	case must leave as many descriptors and threads behind as it found.
*/
class TransferTest : public testing::Test {
protected:
	TransferTest();

	void SetUp() override;
	void TearDown() override;

	// Of the server whose transfer port fServer listens on.
	static uint16 ControlPortOf(const RawServer& server)
	{
		return static_cast<uint16>(server.Port() - 1);
	}

	DownloadInfo* NewDownload(const std::string& localPath, const std::string& name = "notes.txt");
	UploadInfo* NewUpload(const std::string& localPath, const std::string& name = "notes.txt");
	BannerDLInfo* NewBanner(uint32 size);

	// A transfer whose connection the server has accepted.
	std::unique_ptr<TransferRun> Start(thread_func entry, void* record);
	// Lets a transfer meet a server that sends this and hangs up.
	status_t Serve(thread_func entry, void* record, const std::string& answer);

	std::string PathOf(const std::string& name) const { return fFolder.PathOf(name); }
	std::string NewFile(const std::string& name, const std::string& content) const;
	static std::string ContentOf(const std::string& path);

	void ExpectOutcome(uint32 what, const std::string& name, bool success);
	void QuitRecorder();

	// The most memory that the process ever occupied, in bytes.
	static size_t PeakMemory();

	std::unique_ptr<RawServer> fServer;
	RecorderOwner fRecorder;
	TemporaryFolder fFolder;

private:
	size_t fDescriptorsBefore;
	size_t fThreadsBefore;
};


#endif // TRANSFER_TEST_H
