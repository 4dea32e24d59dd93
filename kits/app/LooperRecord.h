/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LOOPER_RECORD_H
#define LOOPER_RECORD_H


#include <condition_variable>
#include <memory>
#include <mutex>

#include <MessageQueue.h>
#include <OS.h>


class BHandler;
class BLooper;


/*!	What others know of a looper: its queue, its lock and how far its life has come. It outlives the looper for as long
	as somebody uses it, and has a token that is never given again. For any thread; fMutex guards everything.
*/
class LooperRecord {
public:
	// The queue is full above either; who waits for room gets it when a quarter is free.
	static const int32 kMaxMessages = 20000;
	static const size_t kMaxBytes = 8 * 1024 * 1024;

	LooperRecord(BLooper* looper, int32 token);
	LooperRecord(const LooperRecord&) = delete;
	~LooperRecord();

	LooperRecord& operator=(const LooperRecord&) = delete;

	int32 Token() const { return fToken; }
	// NULL from the end of its destructor on.
	BLooper* Looper() const;

	status_t Post(const BMessage* message, int32 handlerToken, int32 tick);
	// The caller owns the message. Its target is written to _handlerToken.
	BMessage* Next(int32* _handlerToken);
	// Waits until there is a message or the looper is dying; false for the latter.
	bool WaitForMessage();
	int32 CountMessages() const;

	bool Lock();
	void Unlock();
	void UnlockFully();
	bool IsLocked() const;
	bool LockForQuit();

	void ServeByMainThread();
	bool IsMainServed() const;
	void Start(thread_id thread);
	bool IsStarted() const;
	thread_id Thread() const;

	bool BeginDestruction();
	void EndDestruction();
	bool IsDying() const;

	// For the main thread, which has no lock per looper.
	bool Enter();
	void Leave();

	void WakePosters();

private:
	bool _IsFull() const;
	bool _MayWait() const;

	BLooper* fLooper;
	const int32 fToken;

	mutable std::mutex fMutex;
	std::condition_variable fMessageAdded;
	std::condition_variable fRoomMade;
	std::condition_variable fUnlocked;
	MessageQueue fQueue;
	int32 fWaitingPosters;
	bool fWaitsForMessage;

	thread_id fOwner;
	int32 fLockCount;

	thread_id fThread;
	bool fMainServed;
	bool fStarted;
	bool fEntered;
	bool fDying;
};


typedef std::shared_ptr<LooperRecord> LooperRecordRef;


#endif // LOOPER_RECORD_H
