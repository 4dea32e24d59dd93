/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Autolock.h>
#include <Locker.h>

#include <gtest/gtest.h>


struct Counter {
	BLocker lock{"test"};
	int value = 0;
};


static status_t
count_up(void* data)
{
	Counter* counter = static_cast<Counter*>(data);
	for (int i = 0; i < 10000; i++) {
		BAutolock locker(counter->lock);
		counter->value++;
	}
	return B_OK;
}


static status_t
is_locked_here(void* data)
{
	return static_cast<BLocker*>(data)->IsLocked() ? 1 : 0;
}


struct Attempt {
	BLocker* lock;
	bigtime_t timeout;
};


static status_t
lock_and_unlock(void* data)
{
	const Attempt* attempt = static_cast<Attempt*>(data);
	const status_t status = attempt->lock->LockWithTimeout(attempt->timeout);
	if (status == B_OK)
		attempt->lock->Unlock();
	return status;
}


/*!	What LockWithTimeout() answers on another thread. */
static status_t
lock_elsewhere(BLocker* lock, bigtime_t timeout)
{
	Attempt attempt = {lock, timeout};
	const thread_id thread = spawn_thread(lock_and_unlock, "other", B_NORMAL_PRIORITY, &attempt);
	status_t status = B_ERROR;
	EXPECT_EQ(B_OK, wait_for_thread(thread, &status));
	return status;
}


TEST(LockerTest, Lock_MayBeTakenAgainByItsHolder)
{
	BLocker locker("test");
	EXPECT_FALSE(locker.IsLocked());
	EXPECT_TRUE(locker.Lock());
	EXPECT_TRUE(locker.Lock());
	locker.Unlock();
	EXPECT_TRUE(locker.IsLocked());
	locker.Unlock();
	EXPECT_FALSE(locker.IsLocked());
}


TEST(LockerTest, IsLocked_SpeaksOfTheCallingThread)
{
	BLocker locker("test");
	BAutolock autolock(locker);
	thread_id thread = spawn_thread(is_locked_here, "other", B_NORMAL_PRIORITY, &locker);
	status_t elsewhere = -1;
	ASSERT_EQ(B_OK, wait_for_thread(thread, &elsewhere));
	EXPECT_EQ(0, elsewhere);
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
	Counter counter;
	thread_id threads[4];
	for (thread_id& thread : threads)
		thread = spawn_thread(count_up, "counter", B_NORMAL_PRIORITY, &counter);
	for (thread_id thread : threads)
		resume_thread(thread);
	for (thread_id thread : threads)
		wait_for_thread(thread, NULL);

	BAutolock locker(counter.lock);
	EXPECT_EQ(40000, counter.value);
}


TEST(LockerTest, Autolock_HoldsTheLockForAsLongAsItLives)
{
	BLocker locker("test");
	{
		BAutolock autolock(locker);
		EXPECT_TRUE(locker.IsLocked());
	}
	EXPECT_FALSE(locker.IsLocked());
}
