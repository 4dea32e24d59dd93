/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <LooperScope.h>

#include <LooperRegistry.h>


LooperScope::LooperScope(BLooper* looper)
	: fRecord(LooperRegistry::Default()->Find(looper)),
	  fIsEntered(fRecord != NULL && fRecord->Enter()),
	  fBefore(MainServer::Default()->_BeginHandler(false))
{
	if (fRecord != NULL)
		fRecord->BeginActing();
}


LooperScope::~LooperScope()
{
	if (fRecord != NULL)
		fRecord->EndActing();
	if (fIsEntered)
		fRecord->Leave();
	MainServer::Default()->_EndHandler(fBefore);
}
