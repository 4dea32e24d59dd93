/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Handler.h>

#include <cstdlib>
#include <cstring>

#include <Looper.h>
#include <LooperRegistry.h>
#include <MessageFilter.h>
#include <StrictChecks.h>


BHandler::BHandler(const char* name)
	: fName(name != NULL ? strdup(name) : NULL),
	  fLooper(NULL)
{
	LooperRegistry::Default()->AddHandler(this);
}


/*!	Leaves its looper, which must be locked. */
BHandler::~BHandler()
{
	if (fLooper != NULL)
		fLooper->RemoveHandler(this);
	LooperRegistry::Default()->RemoveHandler(this);
	for (BMessageFilter* filter : fFilters)
		delete filter;
	free(fName);
}


/*!	Passes the message on to the looper. What that does not know is dropped. */
void
BHandler::MessageReceived(BMessage* message)
{
	if (fLooper != NULL && fLooper != this)
		fLooper->MessageReceived(message);
}


/*!	Takes the filter over, which is asked after those that are there. */
void
BHandler::AddFilter(BMessageFilter* filter)
{
	CHECK_LOCKED(fLooper);
	if (filter != NULL)
		fFilters.push_back(filter);
}
