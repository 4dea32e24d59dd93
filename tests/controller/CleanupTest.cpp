/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <atomic>
#include <future>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <OS.h>

#include "AppMessages.h"
#include "ControllerFixture.h"
#include "HotlineNotifications.h"
#include "WaitFor.h"


static const char* const kCleanup = "HL:Cleanup";

// Whether the thread can be had, and how it was asked for.
static bool sHasThreads = true;
static std::vector<std::string> sSpawned;

// The longest wait that any thread asked for, which begins when it may.
static std::atomic<bigtime_t> sSnoozed(0);
static std::shared_future<void> sMaySnooze;

static std::atomic<int> sDeletedCount(0);


// The calls of the controller, by the names that the linker option --wrap gives to their two sides.
extern "C"
{
	thread_id __real__Z12spawn_threadPFiPvEPKciS_(thread_func function, const char* name,
		int32 priority, void* data);
	status_t __real__Z6snoozel(bigtime_t microseconds);
	void __real__ZN13HotlineClientD1Ev(void* client);


	thread_id __wrap__Z12spawn_threadPFiPvEPKciS_(thread_func function, const char* name,
		int32 priority, void* data)
	{
		if (std::string(name) == kCleanup) {
			if (!sHasThreads)
				return B_NO_MORE_THREADS;
			sSpawned.push_back(name + (" " + std::to_string(priority)));
		}
		return __real__Z12spawn_threadPFiPvEPKciS_(function, name, priority, data);
	}


	status_t __wrap__Z6snoozel(bigtime_t microseconds)
	{
		// Other threads of the program wait shorter.
		if (microseconds >= 100000) {
			const std::shared_future<void> maySnooze = sMaySnooze;
			sSnoozed = microseconds;
			maySnooze.wait();
		}
		return __real__Z6snoozel(microseconds);
	}


	void __wrap__ZN13HotlineClientD1Ev(void* client)
	{
		__real__ZN13HotlineClientD1Ev(client);
		sDeletedCount++;
	}
}


/*!	What becomes of a client that the controller has done with: whose thread deletes it, and when.
*/
class CleanupTest : public ControllerFixture {
protected:
	CleanupTest()
	{
		sHasThreads = true;
		sSpawned.clear();
		sSnoozed = 0;
		sMaySnooze = fRelease.get_future().share();
		sDeletedCount = 0;
	}

	// No thread is left to the next case.
	~CleanupTest() override
	{
		_Release();
		EXPECT_SOON(sDeletedCount >= static_cast<int>(sSpawned.size()));
	}

	// Lets the threads that are about to wait do so.
	void _Release()
	{
		if (!fIsReleased)
			fRelease.set_value();
		fIsReleased = true;
	}

private:
	std::promise<void> fRelease;
	bool fIsReleased = false;
};


TEST_F(CleanupTest, Disconnected_IsDeletedByAThreadThatWaits)
{
	LogIn();
	Post(kMsgToolDisconnect);
	EXPECT_EQ(std::vector<std::string>({"HL:Cleanup 5"}), sSpawned);
	// The connection has ended, but the client is still there.
	EXPECT_TRUE(fServer.WaitForEnd());
	EXPECT_SOON(sSnoozed != 0);
	EXPECT_EQ(200000, sSnoozed);
	EXPECT_EQ(0, sDeletedCount);

	_Release();
	EXPECT_SOON(sDeletedCount == 1);
}


TEST_F(CleanupTest, NoThread_DeletesTheClientAtOnce)
{
	sHasThreads = false;
	LogIn();
	Post(kMsgToolDisconnect);
	EXPECT_EQ(1, sDeletedCount);
	EXPECT_EQ(0, sSnoozed);
	EXPECT_TRUE(fServer.WaitForEnd());
}


// Neither is the end of a client: the next attempt, or a disconnect, gives it away.
TEST_F(CleanupTest, OnlyDisconnecting_GivesTheClientAway)
{
	Post(kMsgToolDisconnect);
	ForgetChat();
	LogIn();
	fServer.Hangup();
	AwaitChat("\n*** Connection lost ***\n", 200, 0, 0);
	Post(kHLConnectFailed);
	ForgetChat();
	EXPECT_TRUE(sSpawned.empty());
	EXPECT_EQ(0, sDeletedCount);
	LogIn();
	EXPECT_EQ(1u, sSpawned.size());
	Post(kMsgToolDisconnect);
	EXPECT_EQ(2u, sSpawned.size());
	EXPECT_EQ(0, sDeletedCount);
}
