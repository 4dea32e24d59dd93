/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <cerrno>
#include <sys/socket.h>

#include "AppMessages.h"
#include "InterposedCalls.h"
#include "PatternBytes.h"
#include "TransferTest.h"
#include "WireBytes.h"


static const uint32 kLargestBanner = 524288;


class BannerThreadTest : public TransferTest {
protected:
	status_t Fetch(uint32 size, const std::string& answer)
	{
		return Serve(BannerThread, NewBanner(size), answer);
	}

	void ExpectData(const std::string& expected)
	{
		const BMessage message = fRecorder->OnlyMessage();
		EXPECT_EQ(static_cast<uint32>(kMsgBannerData), message.what);
		EXPECT_EQ(1, message.CountNames(B_ANY_TYPE));
		const void* data = NULL;
		ssize_t size = 0;
		ASSERT_EQ(B_OK, message.FindData("data", B_RAW_TYPE, &data, &size));
		EXPECT_TRUE(
			expected == std::string(static_cast<const char*>(data), static_cast<size_t>(size)));
	}

	void ExpectSilentFailure(BannerDLInfo* info)
	{
		TransferRun run(BannerThread, info);
		EXPECT_EQ(1, run.Result());
		EXPECT_EQ(0, fRecorder->CountMessages());
	}
};


TEST_F(BannerThreadTest, Banner_IsPostedByteForByteUpToItsSize)
{
	static const struct {
		uint32 announced;
		uint32 sent;
	} kBanners[] = {{1, 1}, {70000, 70000}, {kLargestBanner, kLargestBanner}, {2000, 1000},
		{1000, 3000}};

	for (const auto& banner : kBanners) {
		SCOPED_TRACE(banner.sent);
		fRecorder.reset(new MessageRecorder);
		EXPECT_EQ(0, Fetch(banner.announced, PatternBytes(0, banner.sent)));
		ExpectData(PatternBytes(0, std::min(banner.announced, banner.sent)));
	}
}


TEST_F(BannerThreadTest, BytesOneByOne_AreOneBanner)
{
	const auto run = Start(BannerThread, NewBanner(20));
	EXPECT_TRUE(fServer->SendOneByOne(PatternBytes(0, 20)));
	EXPECT_EQ(0, run->Result());
	ExpectData(PatternBytes(0, 20));
}


TEST_F(BannerThreadTest, NothingAnnouncedOrSent_PostsNothing)
{
	EXPECT_EQ(0, Fetch(0, "unasked"));
	EXPECT_EQ(0, Fetch(2000, ""));
	EXPECT_EQ(0, fRecorder->CountMessages());
}


TEST_F(BannerThreadTest, Reset_PostsWhatHadArrived)
{
	const auto run = Start(BannerThread, NewBanner(10));
	fServer->Read(16);
	fServer->Reset();
	EXPECT_EQ(0, run->Result());
	EXPECT_EQ(0, fRecorder->CountMessages());
}


TEST_F(BannerThreadTest, SilentServer_TimesOutAfterThirtySeconds)
{
	InterposedCalls calls;
	calls.ShortenTimeouts(150);
	const auto run = Start(BannerThread, NewBanner(2000));
	EXPECT_EQ(0, run->Result());
	EXPECT_EQ(0, fRecorder->CountMessages());

	EXPECT_EQ((InterposedCalls::Timeouts{{SO_RCVTIMEO, 30}, {SO_SNDTIMEO, 30}}),
		calls.SetTimeouts());
}


TEST_F(BannerThreadTest, SilenceAfterHalf_PostsTheHalf)
{
	InterposedCalls calls;
	calls.ShortenTimeouts(150);
	const auto run = Start(BannerThread, NewBanner(2000));
	fServer->Send(PatternBytes(0, 1000));
	EXPECT_EQ(0, run->Result());
	ExpectData(PatternBytes(0, 1000));
}


TEST_F(BannerThreadTest, RequestSentInParts_ArrivesWhole)
{
	InterposedCalls calls;
	calls.CutNextSend(3);
	EXPECT_EQ(0, Fetch(4, "GIF8"));
	ExpectData("GIF8");
}


TEST_F(BannerThreadTest, NoWayToTheServer_IsSilent)
{
	InterposedCalls calls;
	calls.FailNextSocket(EMFILE);
	ExpectSilentFailure(NewBanner(10));
	calls.FailNextConnect(ECONNREFUSED);
	ExpectSilentFailure(NewBanner(10));

	calls.CutNextSend(0);
	ExpectSilentFailure(NewBanner(10));

	BannerDLInfo* info = NewBanner(10);
	info->address = "no.such.host";
	ExpectSilentFailure(info);
}


TEST_F(BannerThreadTest, ControllerGone_IsNoTrouble)
{
	const auto run = Start(BannerThread, NewBanner(4));
	QuitRecorder();
	fServer->Send("GIF8");
	EXPECT_EQ(0, run->Result());
}
