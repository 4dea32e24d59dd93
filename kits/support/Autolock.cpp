/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Autolock.h>


BAutolock::BAutolock(BLocker& locker)
	: fLocker(locker)
{
	fLocker.Lock();
}


BAutolock::~BAutolock()
{
	fLocker.Unlock();
}
