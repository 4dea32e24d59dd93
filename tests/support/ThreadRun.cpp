/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ThreadRun.h"

#include <gtest/gtest.h>

#include "WaitFor.h"


ThreadRun::ThreadRun(const char* name, const std::function<status_t()>& function)
	: fFunction(function),
	  fResult(-1),
	  fHasEnded(false)
{
	EXPECT_EQ(B_OK, resume_thread(spawn_thread(_Entry, name, B_NORMAL_PRIORITY, this)));
}


ThreadRun::~ThreadRun()
{
	Result(60);
	EXPECT_TRUE(HasEnded()) << "a thread that does not end";
}


status_t
ThreadRun::Result(int seconds) const
{
	const bool hasEnded = WaitFor(
		[this] {
			return HasEnded();
		},
		seconds);
	return hasEnded ? fResult : -1;
}


status_t
ThreadRun::_Entry(void* data)
{
	ThreadRun* run = static_cast<ThreadRun*>(data);
	run->fResult = run->fFunction();
	run->fHasEnded = true;
	return B_OK;
}
