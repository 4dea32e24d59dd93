/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Transfers.h"

#include <gtest/gtest.h>

#include <OS.h>

#include "AppMessages.h"
#include "ControllerFixture.h"
#include "HostileTexts.h"
#include "InterposedCalls.h"
#include "PartTest.h"
#include "RawServer.h"
#include "WaitFor.h"
#include "WireBytes.h"


class TransfersTest : public PartTest {
protected:
	TransfersTest()
		: fTransfers(fTarget.get(), &fChat, "/nowhere/at/all")
	{
	}

	BMessage _Grant(uint32 reference, const char* name, const char* localPath = "/nowhere/at/all")
	{
		BMessage grant = granted_transfer(0, reference, 4000000000u, fServer.Port());
		grant.AddString("filename", name);
		grant.AddString("localpath", localPath);
		return grant;
	}

	InterposedCalls fCalls;
	RawServer fServer;
	Transfers fTransfers;
};


TEST_F(TransfersTest, GrantedDownload_IsFetchedFromTheNextPort)
{
	const BMessage grant = _Grant(0x80000001, "never comes");
	fTransfers.StartDownload(&grant);
	EXPECT_EQ("006400 *** Downloading never comes (4000000000 bytes) ***\n", Said());
	ASSERT_TRUE(fServer.Accept());
	EXPECT_EQ("HTXF" + wire32(0x80000001), fServer.Read(16).substr(0, 8));
	ASSERT_EQ(1u, fCalls.Threads().size());
	EXPECT_EQ("HL:Download", fCalls.Threads()[0].name);
	EXPECT_EQ(B_NORMAL_PRIORITY, fCalls.Threads()[0].priority);
}


// Its name is for the chat only.
TEST_F(TransfersTest, GrantedUpload_IsSentAndItsFailurePosted)
{
	for (const char* name : {"gone", ""}) {
		const BMessage grant = _Grant(7, name);
		fTransfers.StartUpload(&grant);
		EXPECT_EQ("006400 *** Uploading " + std::string(name) + " ***\n", Said());
		const BMessage outcome = AwaitPosted();
		EXPECT_EQ(static_cast<uint32>(kMsgUploadDone), outcome.what);
		EXPECT_STREQ(name, outcome.GetString("filename"));
		EXPECT_FALSE(outcome.GetBool("success", true));
		EXPECT_EQ(0u, outcome.GetUInt32("connection", 0));
	}
	ASSERT_EQ(2u, fCalls.Threads().size());
	EXPECT_EQ("HL:Upload", fCalls.Threads()[0].name);
	EXPECT_EQ(B_NORMAL_PRIORITY, fCalls.Threads()[0].priority);
}


TEST_F(TransfersTest, GrantWithoutReferenceNameOrPath_IsDropped)
{
	const BMessage withoutReference = _Grant(0, "name");
	const BMessage withoutName = _Grant(5, "");
	const BMessage withoutPath = _Grant(5, "name", "");
	fTransfers.StartDownload(&withoutReference);
	fTransfers.StartDownload(&withoutName);
	fTransfers.StartUpload(&withoutReference);
	fTransfers.StartUpload(&withoutPath);
	EXPECT_EQ("", Said());
	EXPECT_TRUE(fCalls.Threads().empty());
}


TEST_F(TransfersTest, NamesThatLeaveTheFolderOrHaveNone_AreToldAsFailed)
{
	const BMessage homeless = _Grant(5, "name");
	Transfers(fTarget.get(), &fChat, "").StartDownload(&homeless);
	EXPECT_EQ("c80000 *** Download failed: name ***\n", Said());
	for (const std::string name : {"..", ".", "../up", "/etc/passwd", "a/b", "a/", "/"}) {
		const BMessage grant = _Grant(5, name.c_str());
		fTransfers.StartDownload(&grant);
		EXPECT_EQ("c80000 *** Download failed: " + name + " ***\n", Said());
	}
	EXPECT_TRUE(fCalls.Threads().empty());
}


TEST_F(TransfersTest, SecondDownloadOfOneName_IsToldAsFailedUntilTheFirstHasEnded)
{
	const BMessage grant = _Grant(5, "name");
	fTransfers.StartDownload(&grant);
	EXPECT_EQ("006400 *** Downloading name (4000000000 bytes) ***\n", Said());
	ASSERT_TRUE(fServer.Accept());
	fTransfers.StartDownload(&grant);
	EXPECT_EQ("c80000 *** Download failed: name ***\n", Said());
	const BMessage other = _Grant(6, "other");
	fTransfers.StartDownload(&other);
	EXPECT_EQ("006400 *** Downloading other (4000000000 bytes) ***\n", Said());

	// An end without a word is one, too.
	fServer.Hangup();
	EXPECT_TRUE(WaitFor([&] {
		fTransfers.StartDownload(&grant);
		return Said() != "c80000 *** Download failed: name ***\n";
	}));
}


// They wait for a server that does not accept them.
TEST_F(TransfersTest, BeyondSixtyFour_TransferIsToldAsFailed)
{
	for (int i = 0; i < 64; i++) {
		const BMessage grant = _Grant(5, std::to_string(i).c_str());
		fTransfers.StartDownload(&grant);
		EXPECT_EQ(0u, Said().find("006400 *** Downloading")) << i;
	}
	const BMessage grant = _Grant(5, "one more");
	fTransfers.StartDownload(&grant);
	EXPECT_EQ("c80000 *** Download failed: one more ***\n", Said());
	fTransfers.StartUpload(&grant);
	EXPECT_EQ("c80000 *** Upload failed: one more ***\n", Said());
	// The next case counts its own.
	EXPECT_SOON(fCalls.Lookups().size() == 64);
}


TEST_F(TransfersTest, WithoutAPort_TheDefaultIsTaken)
{
	BMessage grant;
	grant.AddUInt32("ref", 5);
	grant.AddString("filename", "name");
	grant.AddString("address", "one.example");
	fTransfers.StartDownload(&grant);
	EXPECT_EQ("006400 *** Downloading name (0 bytes) ***\n", Said());
	EXPECT_SOON(fCalls.Lookups().size() == 1);
	EXPECT_EQ("one.example", fCalls.Lookups()[0].host);
	EXPECT_EQ("5501", fCalls.Lookups()[0].port);
}


TEST_F(TransfersTest, WithoutAThread_FileIsToldAsFailed)
{
	const BMessage grant = _Grant(5, "name");
	fCalls.FailNextSpawn(B_NO_MORE_THREADS);
	fTransfers.StartDownload(&grant);
	EXPECT_EQ("c80000 *** Download failed: name ***\n", Said());
	fCalls.FailNextSpawn(B_NO_MORE_THREADS);
	fTransfers.StartUpload(&grant);
	EXPECT_EQ("c80000 *** Upload failed: name ***\n", Said());
	EXPECT_FALSE(fServer.HasCaller());
}


TEST_F(TransfersTest, Outcome_IsToldUnderItsName)
{
	for (const std::string& name : hostile_texts()) {
		SCOPED_TRACE(name);
		BMessage outcome;
		outcome.AddString("filename", name.c_str());
		fTransfers.Report("Upload", &outcome);
		EXPECT_EQ("c80000 *** Upload failed: " + name + " ***\n", Said());
		outcome.AddBool("success", true);
		fTransfers.Report("Download", &outcome);
		EXPECT_EQ("008000 *** Download complete: " + name + " ***\n", Said());
	}
}
