/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ScriptedLooper.h"

#include <poll.h>

#include <LooperPrivate.h>


ScriptedLooper::ScriptedLooper(const char* name)
	: BLooper(name),
	  fLock("scripted looper")
{
}


ScriptedLooper::~ScriptedLooper()
{
	if (onDestroy)
		onDestroy();
}


void
ScriptedLooper::MessageReceived(BMessage* message)
{
	{
		BAutolock locker(fLock);
		fReceived.push_back(message->what);
	}
	if (onMessage)
		onMessage(message);
}


bool
ScriptedLooper::QuitRequested()
{
	return onQuitRequested ? onQuitRequested() : true;
}


std::vector<uint32>
ScriptedLooper::Received()
{
	BAutolock locker(fLock);
	return fReceived;
}


int32
ScriptedLooper::CountReceived()
{
	BAutolock locker(fLock);
	return static_cast<int32>(fReceived.size());
}


// #pragma mark - ServedLooper


ServedLooper::ServedLooper(const char* name)
	: ScriptedLooper(name)
{
	LooperPrivate::ServeByMainThread(this);
}


thread_id
ServedLooper::Run()
{
	LooperPrivate::Start(this);
	return Thread();
}


// #pragma mark - the main thread's event loop


bool
ServeUntil(const std::function<bool()>& condition, int seconds)
{
	MainServer* server = MainServer::Default();
	bigtime_t deadline = system_time() + static_cast<bigtime_t>(seconds) * 1000000;
	while (!condition()) {
		if (system_time() >= deadline)
			return false;
		pollfd descriptor = {server->WakeDescriptor(), POLLIN, 0};
		if (poll(&descriptor, 1, 1) > 0)
			server->ServeTurn();
	}
	return true;
}


void
ServeAll()
{
	while (MainServer::Default()->ServeTurn())
		continue;
}
