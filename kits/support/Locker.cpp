/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Locker.h>


BLocker::BLocker()
	: BLocker(NULL)
{
}


BLocker::BLocker(const char* /*name*/)
	: fOwner(-1),
	  fCount(0)
{
}


BLocker::~BLocker() = default;


/*!	Waits until the lock is free, or the caller's own. It never fails here. */
bool
BLocker::Lock()
{
	thread_id self = find_thread(NULL);
	if (LockingThread() != self) {
		fMutex.lock();
		fOwner.store(self, std::memory_order_relaxed);
	}
	fCount++;
	return true;
}


/*!	Does nothing on a thread that does not hold the lock. */
void
BLocker::Unlock()
{
	if (!IsLocked() || --fCount > 0)
		return;

	fOwner.store(-1, std::memory_order_relaxed);
	fMutex.unlock();
}


/*!	Whether the calling thread holds the lock. */
bool
BLocker::IsLocked() const
{
	return LockingThread() == find_thread(NULL);
}
