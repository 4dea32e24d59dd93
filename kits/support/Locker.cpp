/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Locker.h>

#include <chrono>


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
	return LockWithTimeout(B_INFINITE_TIMEOUT) == B_OK;
}


/*!	The same for a limited time.
	\param timeout In microseconds; 0 does not wait at all.
	\return \c B_OK, \c B_WOULD_BLOCK where the caller did not want to wait, or \c B_TIMED_OUT.
*/
status_t
BLocker::LockWithTimeout(bigtime_t timeout)
{
	if (!IsLocked()) {
		if (timeout == B_INFINITE_TIMEOUT) {
			fMutex.lock();
		} else if (timeout <= 0) {
			if (!fMutex.try_lock())
				return B_WOULD_BLOCK;
		} else {
			const auto deadline = std::chrono::system_clock::now()
				+ std::chrono::microseconds(timeout);
			if (!fMutex.try_lock_until(deadline))
				return B_TIMED_OUT;
		}
		fOwner.store(find_thread(NULL), std::memory_order_relaxed);
	}
	fCount++;
	return B_OK;
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
	return fOwner.load(std::memory_order_relaxed) == find_thread(NULL);
}
