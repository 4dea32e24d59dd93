/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <MainServer.h>

#include <algorithm>
#include <atomic>

#include <gtest/gtest.h>
#include <LooperPrivate.h>
#include <LooperRegistry.h>
#include <LooperScope.h>
#include <Messenger.h>
#include <poll.h>
#include <sys/eventfd.h>

#include "ScriptedLooper.h"
#include "WaitFor.h"


static bool
is_readable()
{
	pollfd descriptor = {MainServer::Default()->WakeDescriptor(), POLLIN, 0};
	return poll(&descriptor, 1, 0) > 0;
}


/*	Two loopers of the main thread, and one that plays the application. */
class MainServerTest : public ::testing::Test {
protected:
	MainServerTest()
		: fApplication(new ServedLooper("application")),
		  fFirst(new ServedLooper("first")),
		  fSecond(new ServedLooper("second"))
	{
		MainServer::Default()->SetApplication(fApplication);
		// An earlier wait for a thread may have left a wake-up behind.
		ServeAll();
	}

	~MainServerTest() override
	{
		for (BLooper* looper : {fFirst, fSecond, fApplication}) {
			if (looper->Lock())
				looper->Quit();
		}
		EXPECT_EQ(0, MainServer::Default()->CountDying());
	}

	void Run()
	{
		fApplication->Run();
		fFirst->Run();
		fSecond->Run();
	}

	ServedLooper* fApplication;
	ServedLooper* fFirst;
	ServedLooper* fSecond;
};


TEST_F(MainServerTest, BeforeStart_NothingIsServed)
{
	fFirst->PostMessage('test');
	EXPECT_FALSE(is_readable());
	EXPECT_FALSE(MainServer::Default()->ServeTurn());
	EXPECT_EQ(0, fFirst->CountReceived());
	fFirst->Run();
	EXPECT_TRUE(is_readable());
	ServeAll();
	EXPECT_EQ(1, fFirst->CountReceived());
	EXPECT_EQ(find_thread(NULL), fFirst->Thread());
}


TEST_F(MainServerTest, Descriptor_IsReadableWhileSomethingWaits_OrAfterALateSignal)
{
	Run();
	EXPECT_FALSE(is_readable());
	thread_id thread = RunThread([&] {
		fFirst->PostMessage('test');
	});
	EXPECT_TRUE(WaitFor(is_readable));
	EXPECT_FALSE(MainServer::Default()->ServeTurn());
	EXPECT_FALSE(is_readable());
	EXPECT_EQ(1, fFirst->CountReceived());
	Join(thread);

	fFirst->onMessage = [&](BMessage*) {
		fFirst->PostMessage('more');
	};
	fFirst->PostMessage('more');
	EXPECT_TRUE(MainServer::Default()->ServeTurn());
	EXPECT_TRUE(is_readable());
	fFirst->onMessage = NULL;
	ServeAll();
	EXPECT_FALSE(is_readable());
	MainServer::Default()->Wake();
	EXPECT_TRUE(is_readable());
	ServeAll();

	// What a poster signals after its message has been served already.
	fFirst->PostMessage('test');
	ServeAll();
	const int32 count = fFirst->CountReceived();
	ASSERT_EQ(0, eventfd_write(MainServer::Default()->WakeDescriptor(), 1));
	EXPECT_TRUE(is_readable());
	EXPECT_FALSE(MainServer::Default()->ServeTurn());
	EXPECT_FALSE(is_readable());
	EXPECT_EQ(count, fFirst->CountReceived());

	fFirst->PostMessage('test');
	EXPECT_TRUE(is_readable());
	ServeAll();
	EXPECT_EQ(count + 1, fFirst->CountReceived());
}


TEST_F(MainServerTest, Messages_ArriveInTheOrderOfPosting)
{
	Run();
	thread_id thread = RunThread([&] {
		for (uint32 i = 0; i < 50000; i++)
			fFirst->PostMessage(i + 1);
	});
	ASSERT_SERVED(fFirst->CountReceived() == 50000);
	Join(thread);
	std::vector<uint32> received = fFirst->Received();
	EXPECT_TRUE(std::is_sorted(received.begin(), received.end()));
}


TEST_F(MainServerTest, OwnPost_ComesAfterTheOthersTurn)
{
	Run();
	std::vector<int> order;
	fFirst->onMessage = [&](BMessage* message) {
		order.push_back(message->what == 'more' ? 1 : 3);
		if (message->what == 'more')
			fFirst->PostMessage('last');
	};
	fSecond->onMessage = [&](BMessage*) {
		order.push_back(2);
	};
	fFirst->PostMessage('more');
	fSecond->PostMessage('test');
	ServeAll();
	EXPECT_EQ((std::vector<int>{1, 2, 3}), order);
}


TEST_F(MainServerTest, FloodInOne_LeavesTheOtherServed)
{
	Run();
	fFirst->onMessage = [&](BMessage*) {
		for (int i = 0; i < 2; i++)
			fFirst->PostMessage('more');
		snooze(10);
	};
	fFirst->PostMessage('more');
	for (int i = 0; i < 20; i++)
		MainServer::Default()->ServeTurn();
	fSecond->PostMessage('test');
	MainServer::Default()->ServeTurn();
	EXPECT_EQ(1, fSecond->CountReceived());
	fFirst->onMessage = NULL;
}


TEST_F(MainServerTest, LongQueue_IsServedInSlices)
{
	Run();
	fFirst->onMessage = [](BMessage*) {
		snooze(1000);
	};
	for (int i = 0; i < 1000; i++)
		fFirst->PostMessage('slow');
	fSecond->PostMessage('test');
	EXPECT_TRUE(MainServer::Default()->ServeTurn());
	EXPECT_GE(fFirst->CountReceived(), 1);
	EXPECT_LT(fFirst->CountReceived(), 1000);
	EXPECT_EQ(1, fSecond->CountReceived());
}


TEST_F(MainServerTest, Handler_IsNotEnteredAgain)
{
	Run();
	bool wasServed = false;
	fFirst->onMessage = [&](BMessage* message) {
		if (message->what != 'outr')
			return;
		fFirst->PostMessage('innr');
		fSecond->PostMessage('test');
		MainServer::Default()->ServeTurn();
		wasServed = fFirst->CountReceived() != 1 || fSecond->CountReceived() != 0;
	};
	fFirst->PostMessage('outr');
	ServeAll();
	EXPECT_FALSE(wasServed);
	EXPECT_EQ(2, fFirst->CountReceived());
	EXPECT_EQ(1, fSecond->CountReceived());
}


TEST_F(MainServerTest, WaitForThread_ServesTheOthersOnly)
{
	Run();
	int32 innerCount = -1;
	HeldThread held;
	fFirst->onMessage = [&](BMessage* message) {
		if (message->what != 'wait')
			return;
		fFirst->PostMessage('own ');
		fSecond->PostMessage('free');
		held.Wait();
		innerCount = fFirst->CountReceived();
	};
	fSecond->onMessage = [&](BMessage*) {
		held.Release();
	};
	fFirst->PostMessage('wait');
	ServeAll();
	EXPECT_EQ(1, innerCount);
	EXPECT_EQ(2, fFirst->CountReceived());
	EXPECT_EQ(1, fSecond->CountReceived());
}


TEST_F(MainServerTest, WaitInsideOfAWait_EnterNobodyAgain)
{
	// Each waits for a thread of its own; the threads end in each order.
	int order[3] = {0, 1, 2};
	do {
		SCOPED_TRACE(::testing::Message() << order[0] << order[1] << order[2]);
		std::atomic<int> released(0);
		ServedLooper* loopers[3];
		thread_id threads[3];
		int depth = 0;
		int maxDepth = 0;
		int finished = 0;
		for (int i = 0; i < 3; i++) {
			int place = static_cast<int>(std::find(order, order + 3, i) - order);
			threads[i] = RunThread([&released, place] {
				WaitFor([&released, place] {
					return released > place;
				});
			});
			loopers[i] = new ServedLooper;
			loopers[i]->onMessage = [&, i](BMessage* message) {
				if (message->what != 'wait')
					return;
				maxDepth = std::max(maxDepth, ++depth);
				if (depth == 3)
					released = 3;
				wait_for_thread(threads[i], NULL);
				depth--;
				finished++;
			};
			loopers[i]->Run();
			loopers[i]->PostMessage('wait');
			loopers[i]->PostMessage('next');
			loopers[i]->PostMessage(B_QUIT_REQUESTED);
		}
		EXPECT_SERVED(finished == 3);
		ServeAll();
		EXPECT_EQ(3, maxDepth);
		for (ServedLooper* looper : loopers)
			EXPECT_FALSE(looper->Lock());
	} while (std::next_permutation(order, order + 3));
}


TEST_F(MainServerTest, OtherThread_MayPostButNotLock)
{
	Run();
	std::atomic<bool> isLocked(true);
	std::atomic<status_t> posted(B_ERROR);
	Join(RunThread([&] {
		isLocked = fFirst->Lock() || fFirst->IsLocked();
		posted = fFirst->PostMessage('test');
	}));
	EXPECT_FALSE(isLocked);
	EXPECT_EQ(B_OK, posted);
	EXPECT_TRUE(fFirst->Lock());
	EXPECT_TRUE(fFirst->IsLocked());
	fFirst->Unlock();
}


TEST_F(MainServerTest, DestructorInOwnHandler_WaitsWhileOthersAreServed)
{
	Run();
	std::atomic<bool> release(false);
	std::atomic<status_t> lateStatus(B_OK);
	thread_id thread = RunThread([&] {
		WaitFor([&] {
			return release.load();
		});
		lateStatus = fFirst->PostMessage('late');
	});
	bool isLocked = true;
	int32 applicationCount = -1;
	int32 dying = 0;
	int32 kept = -1;
	fFirst->onDestroy = [&] {
		kept = LooperRegistry::Default()->Find(fFirst)->CountMessages();
		fApplication->PostMessage('quit');
		fSecond->PostMessage('free');
		dying = MainServer::Default()->CountDying();
		wait_for_thread(thread, NULL);
		applicationCount = fApplication->CountReceived();
	};
	fSecond->onMessage = [&](BMessage*) {
		isLocked = fFirst->Lock();
		release = true;
	};
	fFirst->PostMessage(B_QUIT_REQUESTED);
	fFirst->PostMessage('drop');
	ServeAll();
	EXPECT_EQ(1, dying);
	EXPECT_EQ(0, kept);
	EXPECT_FALSE(isLocked);
	EXPECT_EQ(B_BAD_PORT_ID, lateStatus);
	EXPECT_EQ(0, applicationCount);
	EXPECT_EQ(1, fApplication->CountReceived());
}


TEST_F(MainServerTest, QuitWhileQueued_DropsTheRest)
{
	Run();
	fFirst->PostMessage('test');
	fFirst->PostMessage('test');
	fFirst->onMessage = [&](BMessage*) {
		fFirst->Quit();
	};
	bool isDestroyed = false;
	fFirst->onDestroy = [&] {
		isDestroyed = true;
	};
	fSecond->PostMessage('test');
	ServeAll();
	EXPECT_TRUE(isDestroyed);
	EXPECT_EQ(1, fSecond->CountReceived());
}


TEST_F(MainServerTest, QuitByAnothersHandler_DeletesTheLooper)
{
	Run();
	fSecond->PostMessage('drop');
	fFirst->onMessage = [&](BMessage*) {
		ASSERT_TRUE(fSecond->Lock());
		fSecond->Quit();
	};
	fFirst->PostMessage('quit');
	fSecond->PostMessage('drop');
	int32 count = 0;
	fSecond->onMessage = [&](BMessage*) {
		count++;
	};
	fSecond->onDestroy = [&] {
		EXPECT_LE(count, 2);
	};
	ServeAll();
	EXPECT_FALSE(fSecond->Lock());
	EXPECT_TRUE(fFirst->Lock());
}


TEST_F(MainServerTest, LooperScope_KeepsTheLooperFromBeingServed)
{
	Run();
	HeldThread held;
	fSecond->onMessage = [&](BMessage*) {
		held.Release();
	};
	{
		LooperScope scope(fFirst);
		EXPECT_TRUE(scope.IsEntered());
		EXPECT_FALSE(LooperScope(fFirst).IsEntered());
		fFirst->PostMessage('test');
		fSecond->PostMessage('test');
		MainServer::Default()->ServeTurn();
		EXPECT_EQ(0, fSecond->CountReceived());
		held.Wait();
		EXPECT_EQ(0, fFirst->CountReceived());
		EXPECT_EQ(1, fSecond->CountReceived());
	}
	EXPECT_TRUE(is_readable());
	ServeAll();
	EXPECT_EQ(1, fFirst->CountReceived());
}


TEST_F(MainServerTest, WaitHook_WaitsInItsOwnWay)
{
	Run();
	static int sCalls;
	sCalls = 0;
	MainServer::Default()->SetWaitHook([](bool (*done)(void*), void* cookie) {
		sCalls++;
		ServeUntil([=] {
			return done(cookie);
		});
	});
	HeldThread held;
	fFirst->onMessage = [&](BMessage*) {
		held.Release();
	};
	fFirst->PostMessage('free');
	EXPECT_EQ(B_OK, held.Wait());
	MainServer::Default()->SetWaitHook(NULL);
	EXPECT_EQ(1, sCalls);
	EXPECT_EQ(1, fFirst->CountReceived());
}
