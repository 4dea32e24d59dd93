/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef AUTOLOCK_H
#define AUTOLOCK_H


#include <Locker.h>
#include <Looper.h>


/*!	Holds a lock for as long as it lives, if it could be taken: ask IsLocked() where that may fail. */
class BAutolock {
public:
	BAutolock(BLooper* looper);
	BAutolock(BLocker* locker);
	BAutolock(BLocker& locker);
	BAutolock(const BAutolock&) = delete;
	~BAutolock();

	BAutolock& operator=(const BAutolock&) = delete;

	bool IsLocked() const { return fIsLocked; }
	bool Lock();
	void Unlock();

private:
	BLocker* fLocker;
	BLooper* fLooper;
	bool fIsLocked;
};


#endif // AUTOLOCK_H
