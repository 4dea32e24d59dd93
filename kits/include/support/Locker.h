/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LOCKER_H
#define LOCKER_H


#include <atomic>
#include <mutex>

#include <OS.h>
#include <SupportDefs.h>


/*!	A lock that the thread which holds it may take again; it is free when each Lock() has met its
	Unlock().
	For any threads. It must not be destroyed while a thread holds it or waits for it.
*/
class BLocker {
public:
	BLocker(const char* name);
	BLocker() = delete;
	BLocker(bool benaphoreStyle) = delete;
	BLocker(const char* name, bool benaphoreStyle) = delete;
	BLocker(const BLocker&) = delete;
	virtual ~BLocker();

	BLocker& operator=(const BLocker&) = delete;

	bool Lock();
	status_t LockWithTimeout(bigtime_t timeout);
	void Unlock();

	bool IsLocked() const;

private:
	std::timed_mutex fMutex;
	// Written by the thread that holds fMutex only.
	std::atomic<thread_id> fOwner;
	int32 fCount;
};


#endif // LOCKER_H
