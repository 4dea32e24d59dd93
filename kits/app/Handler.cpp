/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Handler.h>

#include <cstdlib>
#include <cstring>

#include <Looper.h>
#include <LooperRegistry.h>


BHandler::BHandler(const char* name)
	: fName(name != NULL ? strdup(name) : NULL),
	  fLooper(NULL),
	  fNextHandler(NULL)
{
	LooperRegistry::Default()->AddHandler(this);
}


/*!	Leaves its looper, which must be locked. */
BHandler::~BHandler()
{
	BLooper* looper = Looper();
	if (looper != NULL)
		looper->RemoveHandler(this);
	LooperRegistry::Default()->RemoveHandler(this);
	free(fName);
}


/*!	Passes the message on to the next handler. What the last one does not know is dropped. */
void
BHandler::MessageReceived(BMessage* message)
{
	if (fNextHandler != NULL)
		fNextHandler->MessageReceived(message);
}


void
BHandler::SetName(const char* name)
{
	char* copy = name != NULL ? strdup(name) : NULL;
	free(fName);
	fName = copy;
}


/*!	\a handler must belong to the same looper. */
void
BHandler::SetNextHandler(BHandler* handler)
{
	fNextHandler = handler;
}


/*!	Locks the looper. False without one, and when it is gone or was changed meanwhile. */
bool
BHandler::LockLooper()
{
	BLooper* looper = Looper();
	if (looper == NULL || !looper->Lock())
		return false;
	if (looper == Looper())
		return true;

	looper->Unlock();
	return false;
}


void
BHandler::UnlockLooper()
{
	BLooper* looper = Looper();
	if (looper != NULL)
		looper->Unlock();
}
