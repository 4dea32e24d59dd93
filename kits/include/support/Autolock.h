/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef AUTOLOCK_H
#define AUTOLOCK_H


#include <Locker.h>


/*!	Holds a lock for as long as it lives. */
class BAutolock {
public:
	BAutolock(BLocker& locker);
	BAutolock(const BAutolock&) = delete;
	~BAutolock();

	BAutolock& operator=(const BAutolock&) = delete;

private:
	BLocker& fLocker;
};


#endif // AUTOLOCK_H
