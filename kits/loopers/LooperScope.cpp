/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <LooperScope.h>

#include <LooperRegistry.h>
#include <MainServer.h>


LooperScope::LooperScope(BLooper* looper)
	: fRecord(LooperRegistry::Default()->Find(looper)),
	  fIsEntered(fRecord != NULL && fRecord->Enter()),
	  fMightServe(MainServer::Default()->_BeginHandler())
{
}


LooperScope::~LooperScope()
{
	if (fIsEntered)
		fRecord->Leave();
	MainServer::Default()->_EndHandler(fMightServe);
}
