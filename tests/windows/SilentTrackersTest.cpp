/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TrackerWindow.h"

#include <atomic>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include <ListView.h>
#include <Looper.h>
#include <Message.h>
#include <Messenger.h>

#include "AppMessages.h"
#include "MessageRecorder.h"
#include "RawServer.h"
#include "WaitFor.h"
#include "WindowProbe.h"


// The request of a client in bytes.
static const size_t kRequestSize = 6;


namespace {


/*!	Takes note of the end of what it is a base of. */
class EndWitness {
public:
	explicit EndWitness(std::atomic<bool>* _hasEnded)
		: fHasEnded(_hasEnded)
	{
	}

	~EndWitness() { *fHasEnded = true; }

private:
	std::atomic<bool>* fHasEnded;
};


/*!	Has ended when its destructor has waited for the fetch: the witness goes last. */
class WatchedWindow : private EndWitness, public TrackerWindow {
public:
	WatchedWindow(BLooper* target, const char* address, std::atomic<bool>* _hasEnded)
		: EndWitness(_hasEnded),
		  TrackerWindow(BRect(150, 100, 650, 450), target, address)
	{
	}
};


/*!	A tracker that has been asked and says nothing, and the window that asks. */
class SilentTracker {
public:
	explicit SilentTracker(BLooper* target)
		: fHasEnded(false),
		  fWindow(new WatchedWindow(target,
			  ("127.0.0.1:" + std::to_string(fTracker.Port())).c_str(), &fHasEnded)),
		  fMessenger(fWindow.Window())
	{
		fWindow.Window()->Show();
		EXPECT_TRUE(fTracker.Accept());
		EXPECT_EQ(kRequestSize, fTracker.Read(kRequestSize).size());
	}

	WindowProbe& Window() { return fWindow; }
	bool IsClosing() const { return !fMessenger.IsValid(); }
	bool HasEnded() const { return fHasEnded; }
	void Hangup() { fTracker.Hangup(); }

private:
	RawServer fTracker;
	std::atomic<bool> fHasEnded;
	WindowProbe fWindow;
	BMessenger fMessenger;
};


/*!	Ends the trackers one by one, from its own thread, each when a window has answered once more while the others wait. */
class Conductor : public BLooper {
public:
	Conductor()
		: BLooper("conductor"),
		  fNext(0),
		  fIsDone(false)
	{
		Run();
	}

	// Before anything is posted to the window that answers.
	void SetUp(BWindow* answering, const std::vector<SilentTracker*>& trackers)
	{
		fAnswering = BMessenger(answering);
		fTrackers = trackers;
	}

	bool IsDone() const { return fIsDone; }

	void MessageReceived(BMessage* message) override
	{
		ASSERT_EQ(uint32(kMsgConnectServer), message->what);
		bool areClosing = true;
		for (const SilentTracker* tracker : fTrackers)
			areClosing &= tracker->IsClosing();
		if (areClosing) {
			EXPECT_FALSE(fTrackers[fNext]->HasEnded());
			fTrackers[fNext++]->Hangup();
		}
		fIsDone = fNext == fTrackers.size();
		if (!fIsDone)
			fAnswering.SendMessage(kMsgTrackerInvoke);
	}

private:
	BMessenger fAnswering;
	std::vector<SilentTracker*> fTrackers;
	size_t fNext;
	std::atomic<bool> fIsDone;
};


} // namespace


/*!	Closes three windows in one order and ends their trackers in another one. */
static void
close_three(const std::vector<size_t>& closing, const std::vector<size_t>& ending)
{
	const std::unique_ptr<Conductor, LooperQuitter> conductor(new Conductor());
	SilentTracker answering(conductor.get());
	BMessage server(kMsgTrackerServer);
	server.AddString("name", "Harbor");
	answering.Window().Post(&server);
	answering.Window().Find<BListView>("serverlist")->Select(0);

	std::unique_ptr<SilentTracker> trackers[3];
	for (std::unique_ptr<SilentTracker>& tracker : trackers)
		tracker.reset(new SilentTracker(conductor.get()));
	conductor->SetUp(answering.Window().Window(),
		{trackers[ending[0]].get(), trackers[ending[1]].get(), trackers[ending[2]].get()});
	for (const size_t i : closing)
		trackers[i]->Window().Window()->PostMessage(B_QUIT_REQUESTED);
	answering.Window().Window()->PostMessage(kMsgTrackerInvoke);

	// The windows' destructors wait inside of this wait.
	EXPECT_TRUE(WaitFor([&conductor, &trackers] {
		return conductor->IsDone() && trackers[0]->HasEnded() && trackers[1]->HasEnded()
			&& trackers[2]->HasEnded();
	}));
	answering.Hangup();
}


TEST(SilentTrackersTest, WindowsClosedInAnyOrder_LeaveAnotherServed)
{
	std::vector<size_t> closing = {0, 1, 2};
	do {
		std::vector<size_t> ending = {0, 1, 2};
		do {
			SCOPED_TRACE(testing::Message() << "closed " << closing[0] << closing[1] << closing[2]
											<< ", ended " << ending[0] << ending[1] << ending[2]);
			close_three(closing, ending);
		} while (std::next_permutation(ending.begin(), ending.end()));
	} while (std::next_permutation(closing.begin(), closing.end()));
}
