/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RunThread.h"


static status_t
run_function(void* data)
{
	const std::unique_ptr<std::function<void()>> function(
		static_cast<std::function<void()>*>(data));
	(*function)();
	return B_OK;
}


thread_id
RunThread(std::function<void()> function, const char* name)
{
	const thread_id thread = spawn_thread(run_function, name, B_NORMAL_PRIORITY,
		new std::function<void()>(std::move(function)));
	resume_thread(thread);
	return thread;
}


void
Join(thread_id thread)
{
	wait_for_thread(thread, NULL);
}


// #pragma mark - HeldThread


HeldThread::HeldThread()
	: fIsReleased(std::make_shared<std::atomic<bool>>(false))
{
	fThread = RunThread([isReleased = fIsReleased] {
		while (!*isReleased)
			snooze(1000);
	});
}
