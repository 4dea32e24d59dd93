/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LOOPER_PRIVATE_H
#define LOOPER_PRIVATE_H


#include <deque>
#include <mutex>
#include <vector>

#include <Looper.h>
#include <LooperRecord.h>


/*!	Serves the loopers that have no thread of their own, the application and the windows, on the main thread.
	The event loop watches WakeDescriptor() for reading and calls ServeTurn() when it is readable. All but Wake() and what
	LooperRecord calls belongs to the main thread. There is one, and it is never destroyed.
*/
class MainServer {
public:
	static MainServer* Default();

	// An eventfd, readable while a looper is ready or a waiting ServeTurn() has to look again. Never read or write it.
	int WakeDescriptor() const { return fWakeDescriptor; }

	// Gives every looper that is ready one slice of a few milliseconds. True while more waits. Does nothing inside of a
	// handler, except inside of the wait hook.
	bool ServeTurn();

	// How wait_for_thread() waits on the main thread: the hook processes events, and ServeTurn() with them, until done
	// answers true. Without a hook the server polls WakeDescriptor() itself. NULL takes it away.
	void SetWaitHook(void (*hook)(bool (*done)(void*), void* cookie));

	// The application: it takes no message while any other main-served looper is being destroyed.
	void SetApplication(BLooper* application);
	// How many main-served loopers are between LooperPrivate::BeginDestruction() and the end of ~BLooper().
	int32 CountDying() const;
	// The living main-served loopers but the application, in order of creation; dying ones, whose Lock() fails, included.
	void GetWindows(std::vector<BLooper*>& _windows) const;

	// Makes WakeDescriptor() readable. For any thread.
	void Wake();

private:
	friend class LooperPrivate;
	friend class LooperRecord;
	friend class LooperScope;

	MainServer();
	~MainServer() = delete;

	void MakeReady(const LooperRecordRef& record);
	void AddDying();
	void RemoveDying();
	void _Wake();
	LooperRecordRef _NextReady();
	void _ServeSlice(const LooperRecordRef& record);
	static void _Wait(bool (*done)(void*), void* cookie);

	const int fWakeDescriptor;

	// The main thread's.
	bool fMayServe;
	void (*fWaitHook)(bool (*done)(void*), void* cookie);

	// For any thread, under fMutex.
	mutable std::mutex fMutex;
	std::deque<LooperRecordRef> fReady;
	bool fSignalled;
	LooperRecordRef fApplication;
	LooperRecordRef fHeldApplication;
	int32 fDyingCount;
};


/*!	What the application and the windows may do with a looper beyond its public face. */
class LooperPrivate {
public:
	// In the constructor: the looper has no thread, and its messages wait until Start().
	static void ServeByMainThread(BLooper* looper);
	// From Run() and from the first Show(); once.
	static void Start(BLooper* looper);
	static bool IsStarted(const BLooper* looper);

	// First thing in Quit() and in the destructor; more than once is harmless. From here on posting and Lock() fail, and
	// what was queued is gone. ~BLooper() ends it.
	static void BeginDestruction(BLooper* looper);
	// False for a looper that is gone as well.
	static bool IsAlive(const BLooper* looper);

	// Delivers a message at once, as if it had been the next in the queue. For the looper's thread.
	static void Dispatch(BLooper* looper, BMessage* message, BHandler* handler);

private:
	friend class BLooper;

	static status_t _Loop(void* data);
};


/*!	Marks a main-served looper as being inside of a handler while a toolkit event runs the client's code for it, so that it
	is not entered again when that code waits for a thread.
*/
class LooperScope {
public:
	explicit LooperScope(BLooper* looper);
	LooperScope(const LooperScope&) = delete;
	~LooperScope();

	LooperScope& operator=(const LooperScope&) = delete;

	// False when the looper is dying, or is inside of a handler already.
	bool IsEntered() const { return fEntered; }

private:
	LooperRecordRef fRecord;
	bool fEntered;
	bool fMayServe;
};


#endif // LOOPER_PRIVATE_H
