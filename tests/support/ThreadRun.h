/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef THREAD_RUN_H
#define THREAD_RUN_H


#include <atomic>
#include <functional>

#include <OS.h>


/*!	A function that runs on a thread of its own, and is waited for in the end. */
class ThreadRun {
public:
	ThreadRun(const char* name, const std::function<status_t()>& function);
	ThreadRun(const ThreadRun&) = delete;
	~ThreadRun();

	ThreadRun& operator=(const ThreadRun&) = delete;

	bool HasEnded() const { return fHasEnded; }
	// What the function returned; -1 if it does not within so many seconds.
	status_t Result(int seconds = 10) const;

private:
	static status_t _Entry(void* data);

	std::function<status_t()> fFunction;
	status_t fResult;
	std::atomic<bool> fHasEnded;
};


#endif // THREAD_RUN_H
