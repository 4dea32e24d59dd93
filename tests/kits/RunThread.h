/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef RUN_THREAD_H
#define RUN_THREAD_H


#include <atomic>
#include <functional>
#include <memory>

#include <OS.h>


/*!	Runs a function on a thread of its own, which starts at once. */
thread_id RunThread(std::function<void()> function, const char* name = "test");

/*!	Waits until the thread has ended, if it has not yet. */
void Join(thread_id thread);


/*!	A thread that does nothing until it is released, and is then at its end. */
class HeldThread {
public:
	HeldThread();
	~HeldThread() { Release(); }

	void Release() { *fIsReleased = true; }
	bool IsReleased() const { return *fIsReleased; }
	status_t Wait() { return wait_for_thread(fThread, NULL); }

private:
	std::shared_ptr<std::atomic<bool>> fIsReleased;
	thread_id fThread;
};


#endif // RUN_THREAD_H
