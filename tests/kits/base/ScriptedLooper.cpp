/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ScriptedLooper.h"

#include <memory>

#include <poll.h>

#include <LooperPrivate.h>


namespace {


status_t
run_function(void* data)
{
	std::unique_ptr<std::function<void()>> function(static_cast<std::function<void()>*>(data));
	(*function)();
	return B_OK;
}


} // namespace


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
	return int32(fReceived.size());
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
	bigtime_t deadline = system_time() + bigtime_t(seconds) * 1000000;
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


thread_id
RunThread(std::function<void()> function, const char* name)
{
	auto* data = new std::function<void()>(std::move(function));
	thread_id thread = spawn_thread(run_function, name, B_NORMAL_PRIORITY, data);
	resume_thread(thread);
	return thread;
}


void
Join(thread_id thread)
{
	wait_for_thread(thread, NULL);
}
