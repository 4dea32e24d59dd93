/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Autolock.h>
#include <Locker.h>

#include <gtest/gtest.h>

#include "RunThread.h"


/*!	What LockWithTimeout() answers on another thread. */
static status_t
lock_elsewhere(BLocker* lock, bigtime_t timeout)
{
	status_t status = B_ERROR;
	Join(RunThread([&] {
		status = lock->LockWithTimeout(timeout);
		if (status == B_OK)
			lock->Unlock();
	}));
	return status;
}


TEST(LockerTest, Lock_MayBeTakenAgainByItsHolder_AndByAnAutolock)
{
	BLocker locker("test");
	EXPECT_FALSE(locker.IsLocked());
	EXPECT_TRUE(locker.Lock());
	EXPECT_TRUE(locker.Lock());
	locker.Unlock();
	EXPECT_TRUE(locker.IsLocked());
	locker.Unlock();
	EXPECT_FALSE(locker.IsLocked());

	{
		BAutolock autolock(locker);
		EXPECT_TRUE(locker.IsLocked());
	}
	EXPECT_FALSE(locker.IsLocked());
}


TEST(LockerTest, IsLocked_SpeaksOfTheCallingThread)
{
	BLocker locker("test");
	BAutolock autolock(locker);
	bool isLockedElsewhere = true;
	Join(RunThread([&] {
		isLockedElsewhere = locker.IsLocked();
	}));
	EXPECT_FALSE(isLockedElsewhere);
	EXPECT_TRUE(locker.IsLocked());
}


TEST(LockerTest, LockWithTimeout_GivesUpWhileAnotherHoldsIt)
{
	BLocker locker("test");
	EXPECT_EQ(B_OK, locker.LockWithTimeout(0));
	EXPECT_EQ(B_OK, locker.LockWithTimeout(1000));
	EXPECT_EQ(B_WOULD_BLOCK, lock_elsewhere(&locker, 0));
	EXPECT_EQ(B_TIMED_OUT, lock_elsewhere(&locker, 1000));
	locker.Unlock();
	locker.Unlock();

	EXPECT_EQ(B_OK, lock_elsewhere(&locker, 0));
	EXPECT_EQ(B_OK, lock_elsewhere(&locker, 1000));
	EXPECT_EQ(B_OK, lock_elsewhere(&locker, B_INFINITE_TIMEOUT));
}


TEST(LockerTest, Threads_ExcludeEachOther)
{
	BLocker lock("test");
	int value = 0;
	thread_id threads[4];
	for (thread_id& thread : threads) {
		thread = RunThread([&] {
			for (int i = 0; i < 10000; i++) {
				BAutolock locker(lock);
				value++;
			}
		});
	}
	for (thread_id thread : threads)
		Join(thread);
	EXPECT_EQ(40000, value);
}
