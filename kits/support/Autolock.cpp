/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Autolock.h>


BAutolock::BAutolock(BLooper* looper)
	: fLocker(NULL),
	  fLooper(looper),
	  fIsLocked(looper != NULL && looper->Lock())
{
}


BAutolock::BAutolock(BLocker* locker)
	: fLocker(locker),
	  fLooper(NULL),
	  fIsLocked(locker != NULL && locker->Lock())
{
}


BAutolock::BAutolock(BLocker& locker)
	: BAutolock(&locker)
{
}


BAutolock::~BAutolock()
{
	Unlock();
}


bool
BAutolock::Lock()
{
	if (fIsLocked)
		return true;

	if (fLocker != NULL)
		fIsLocked = fLocker->Lock();
	else if (fLooper != NULL)
		fIsLocked = fLooper->Lock();
	return fIsLocked;
}


void
BAutolock::Unlock()
{
	if (!fIsLocked)
		return;

	fIsLocked = false;
	if (fLocker != NULL)
		fLocker->Unlock();
	else
		fLooper->Unlock();
}
