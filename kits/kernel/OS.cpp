/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <OS.h>

#include <cerrno>
#include <condition_variable>
#include <cstring>
#include <ctime>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

#include <pthread.h>
#include <unistd.h>

#include <ThreadPrivate.h>


// In bytes, of a thread. The system's default reserves eight times as much.
static const size_t kStackSize = 1024 * 1024;


struct Thread {
	thread_id id = -1;
	std::string name;
	thread_func function = NULL;
	void* data = NULL;

	// Under the table's lock.
	status_t returnValue = B_OK;
	bool isResumed = false;
	bool hasEnded = false;
	int32 waiters = 0;
	int32 mainWaiters = 0;
	std::condition_variable changed;
};


typedef std::shared_ptr<Thread> ThreadRef;


/*!	All threads that have not ended. Never destroyed, as threads may still run when the process
	ends.
*/
struct ThreadTable {
	static ThreadTable* Default();

	std::mutex lock;
	std::unordered_map<thread_id, ThreadRef> threads;
	thread_id lastId = 0;
	void (*waitHook)(bool (*done)(void*), void* cookie) = NULL;
	void (*wake)() = NULL;
	void (*awaitNotifier)() = NULL;
};


static thread_local ThreadRef sSelf;


ThreadTable*
ThreadTable::Default()
{
	static ThreadTable* const sTable = new ThreadTable;
	return sTable;
}


/*!	With the lock held. The thread is suspended until it is resumed. */
static ThreadRef
add_thread(ThreadTable* table, const char* name)
{
	ThreadRef thread = std::make_shared<Thread>();
	thread->id = ++table->lastId;
	thread->name.assign(name, strnlen(name, B_OS_NAME_LENGTH - 1));
	table->threads[thread->id] = thread;
	return thread;
}


/*!	A thread that was not made by spawn_thread() gets an id when it first asks, and gives it back
	when it ends.
*/
struct ForeignThread {
	~ForeignThread();

	ThreadRef thread;
};


static Thread*
current_thread()
{
	if (sSelf)
		return sSelf.get();

	static thread_local ForeignThread sForeign;
	if (!sForeign.thread) {
		char name[16] = "";
		pthread_getname_np(pthread_self(), name, sizeof(name));

		ThreadTable* table = ThreadTable::Default();
		std::lock_guard<std::mutex> locker(table->lock);
		sForeign.thread = add_thread(table, name);
		sForeign.thread->isResumed = true;
	}
	return sForeign.thread.get();
}


static void
end_thread(Thread* thread, status_t returnValue)
{
	ThreadTable* table = ThreadTable::Default();
	std::lock_guard<std::mutex> locker(table->lock);
	thread->returnValue = returnValue;
	thread->hasEnded = true;
	table->threads.erase(thread->id);
	thread->changed.notify_all();
	if (thread->mainWaiters > 0 && table->wake != NULL)
		table->wake();
}


ForeignThread::~ForeignThread()
{
	if (thread)
		end_thread(thread.get(), B_OK);
}


static void*
thread_entry(void* data)
{
	{
		std::unique_ptr<ThreadRef> handedOver(static_cast<ThreadRef*>(data));
		sSelf = std::move(*handedOver);
	}
	Thread* thread = sSelf.get();
	// The system shows up to 15 bytes.
	pthread_setname_np(pthread_self(), thread->name.substr(0, 15).c_str());

	ThreadTable* table = ThreadTable::Default();
	{
		std::unique_lock<std::mutex> locker(table->lock);
		while (!thread->isResumed)
			thread->changed.wait(locker);
	}

	end_thread(thread, thread->function(thread->data));
	return NULL;
}


/*!	With the lock held. */
static void
resume(Thread* thread)
{
	thread->isResumed = true;
	thread->changed.notify_all();
}


static bool
has_ended(void* cookie)
{
	ThreadTable* table = ThreadTable::Default();
	std::lock_guard<std::mutex> locker(table->lock);
	return static_cast<Thread*>(cookie)->hasEnded;
}

/*!	Makes a thread, which does nothing until it is resumed.
	Differs from Haiku: the priority is not used; the system's scheduler is fair among a process'
	threads.
	\return The thread's id, which no other thread will ever have, or an error when there can be no
	more threads.
*/
thread_id
spawn_thread(thread_func function, const char* name, int32 /*priority*/, void* data)
{
	if (function == NULL)
		return B_BAD_VALUE;

	ThreadTable* table = ThreadTable::Default();
	ThreadRef thread;
	{
		std::lock_guard<std::mutex> locker(table->lock);
		thread = add_thread(table, name != NULL ? name : "user thread");
		thread->function = function;
		thread->data = data;
	}

	auto handedOver = std::make_unique<ThreadRef>(thread);
	pthread_attr_t attributes;
	pthread_attr_init(&attributes);
	pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
	pthread_attr_setstacksize(&attributes, kStackSize);
	pthread_t handle;
	int error = pthread_create(&handle, &attributes, thread_entry, handedOver.get());
	pthread_attr_destroy(&attributes);

	if (error != 0) {
		std::lock_guard<std::mutex> locker(table->lock);
		table->threads.erase(thread->id);
		return B_NO_MORE_THREADS;
	}

	static_cast<void>(handedOver.release());
	return thread->id;
}


/*!	Starts a thread that was spawned. \c B_BAD_THREAD_STATE when it runs already. */
status_t
resume_thread(thread_id thread)
{
	ThreadTable* table = ThreadTable::Default();
	std::lock_guard<std::mutex> locker(table->lock);
	auto found = table->threads.find(thread);
	if (found == table->threads.end())
		return B_BAD_THREAD_ID;
	if (found->second->isResumed)
		return B_BAD_THREAD_STATE;

	resume(found->second.get());
	return B_OK;
}


/*!	Waits until the thread has ended, and resumes it first if nobody has. On the main thread the
	windows are served meanwhile.
	\return \c B_BAD_THREAD_ID at once for a thread that has ended already, \c B_NOT_ALLOWED for the
	calling thread.
*/
status_t
wait_for_thread(thread_id id, status_t* _returnValue)
{
	Thread* self = current_thread();
	if (id == self->id)
		return B_NOT_ALLOWED;

	ThreadTable* table = ThreadTable::Default();
	std::unique_lock<std::mutex> locker(table->lock);
	auto found = table->threads.find(id);
	if (found == table->threads.end())
		return B_BAD_THREAD_ID;

	ThreadRef thread = found->second;
	resume(thread.get());

	thread->waiters++;
	void (*notifier)() = table->awaitNotifier;
	void (*hook)(bool (*)(void*), void*) = is_main_thread() ? table->waitHook : NULL;
	if (hook != NULL)
		thread->mainWaiters++;

	if (notifier != NULL) {
		locker.unlock();
		notifier();
		locker.lock();
	}

	if (hook != NULL) {
		locker.unlock();
		hook(has_ended, thread.get());
		locker.lock();
		thread->mainWaiters--;
	}
	while (!thread->hasEnded)
		thread->changed.wait(locker);

	thread->waiters--;
	if (_returnValue != NULL)
		*_returnValue = thread->returnValue;
	return B_OK;
}


/*!	The id of a running thread with that name, or with NULL that of the calling thread. */
thread_id
find_thread(const char* name)
{
	// Asked for by every lock.
	static thread_local thread_id sId = current_thread()->id;
	if (name == NULL)
		return sId;

	ThreadTable* table = ThreadTable::Default();
	std::lock_guard<std::mutex> locker(table->lock);
	for (const auto& entry : table->threads) {
		if (entry.second->name == name)
			return entry.first;
	}
	return B_NAME_NOT_FOUND;
}


status_t
snooze(bigtime_t microseconds)
{
	if (microseconds <= 0)
		return B_OK;

	timespec left;
	left.tv_sec = static_cast<time_t>(microseconds / 1000000);
	left.tv_nsec = static_cast<long>(microseconds % 1000000) * 1000;
	while (clock_nanosleep(CLOCK_MONOTONIC, 0, &left, &left) == EINTR)
		continue;
	return B_OK;
}


/*!	The time since the system was started, which is never set back. */
bigtime_t
system_time()
{
	timespec now;
	clock_gettime(CLOCK_MONOTONIC, &now);
	return static_cast<bigtime_t>(now.tv_sec) * 1000000 + now.tv_nsec / 1000;
}


// #pragma mark - for the kits


void
set_main_wait_hook(void (*hook)(bool (*done)(void*), void* cookie), void (*wake)())
{
	ThreadTable* table = ThreadTable::Default();
	std::lock_guard<std::mutex> locker(table->lock);
	table->waitHook = hook;
	table->wake = wake;
}


void
set_await_notifier(void (*notify)())
{
	ThreadTable* table = ThreadTable::Default();
	std::lock_guard<std::mutex> locker(table->lock);
	table->awaitNotifier = notify;
}


bool
is_main_thread()
{
	static thread_local bool sIsMain = gettid() == getpid();
	return sIsMain;
}


bool
is_awaited()
{
	Thread* self = current_thread();
	ThreadTable* table = ThreadTable::Default();
	std::lock_guard<std::mutex> locker(table->lock);
	return self->waiters > 0;
}


bool
have_others_started()
{
	const Thread* self = current_thread();
	ThreadTable* table = ThreadTable::Default();
	std::lock_guard<std::mutex> locker(table->lock);
	for (const auto& entry : table->threads) {
		if (entry.second.get() != self && entry.second->isResumed)
			return true;
	}
	return false;
}
