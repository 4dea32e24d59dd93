/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include <Looper.h>
#include <Message.h>

#include "MessageRecorder.h"
#include "RawServer.h"
#include "TrackerWindow.h"
#include "WaitFor.h"
#include "WindowMain.h"
#include "WindowProbe.h"


// The request of a client in bytes.
static const size_t kRequestSize = 6;


/*!	A tracker that has been asked and says nothing, and the window that asks. */
class SilentTracker {
public:
	explicit SilentTracker(BLooper* target)
		: fWindow(new TrackerWindow(BRect(150, 100, 650, 450), target,
			("127.0.0.1:" + std::to_string(fTracker.Port())).c_str()))
	{
		fWindow.Window()->Show();
		HoldWindows();
		EXPECT_TRUE(fTracker.Accept());
		EXPECT_EQ(kRequestSize, fTracker.Read(kRequestSize).size());
	}

	WindowProbe& Window() { return fWindow; }
	// The window has gone, and the tracker is hung up on.
	void ExpectEnd()
	{
		fWindow.WaitForEnd();
		EXPECT_TRUE(fTracker.WaitForEnd());
	}

private:
	RawServer fTracker;
	WindowProbe fWindow;
};


TEST(SilentTrackersTest, ClosedWindow_DoesNotWaitForItsTracker)
{
	const RecorderOwner target(new MessageRecorder());
	std::vector<size_t> order = {0, 1, 2};
	do {
		SCOPED_TRACE(testing::Message() << order[0] << order[1] << order[2]);
		std::unique_ptr<SilentTracker> trackers[3];
		for (std::unique_ptr<SilentTracker>& tracker : trackers)
			tracker.reset(new SilentTracker(target.get()));
		for (const size_t i : order)
			trackers[i]->Window().Window()->PostMessage(B_QUIT_REQUESTED);
		for (const size_t i : order)
			trackers[i]->ExpectEnd();
	} while (std::next_permutation(order.begin(), order.end()));
}


// A refresh does not begin another fetch while one is under way, and closing ends that one.
TEST(SilentTrackersTest, RefreshedWindow_IsServedAndCloses)
{
	const RecorderOwner target(new MessageRecorder());
	SilentTracker tracker(target.get());
	tracker.Window().Invoke("refresh");
	EXPECT_EQ("Loading…", tracker.Window().Label("status"));
	tracker.Window().Window()->PostMessage(B_QUIT_REQUESTED);
	tracker.ExpectEnd();
}
