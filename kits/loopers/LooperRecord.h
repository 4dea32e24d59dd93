/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LOOPER_RECORD_H
#define LOOPER_RECORD_H


#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

#include <MessageQueue.h>
#include <OS.h>


class BLooper;


/*!	What others know of a looper: its queue, its lock and how far its life has come. It outlives the
	looper for as long as somebody uses it, and has a token that is never given again. For any
	thread.
*/
class LooperRecord : public std::enable_shared_from_this<LooperRecord> {
public:
	// A queue that holds one or the other is full. Who waits for room goes on when a quarter is
	// free again.
	static const int32 kMaxMessages = 20000;
	static const size_t kMaxBytes = 8 * 1024 * 1024;

	LooperRecord(BLooper* looper, int32 token);
	LooperRecord(const LooperRecord&) = delete;

	LooperRecord& operator=(const LooperRecord&) = delete;

	int32 Token() const { return fToken; }
	BLooper* Looper() const;

	status_t Post(const BMessage* message, int32 handlerToken, int32 runnerToken = 0);
	bool WaitForMessage();
	std::unique_ptr<BMessage> Next(int32* _handlerToken);
	int32 CountMessages() const;
	int32 CountWaitingPosters() const;
	void WakePosters();

	bool Lock();
	void LockToDestroy();
	void Unlock();
	void UnlockFully();
	bool IsLocked() const;

	void ServeByMainThread();
	bool IsMainServed() const;
	bool Start(thread_id thread);
	bool IsStarted() const;
	thread_id Thread() const;

	bool Enter();
	bool EnterForMessage();
	void Leave();
	void BeginActing();
	void EndActing();

	bool BeginDestruction();
	void EndDestruction();
	bool IsDying() const;

private:
	friend class MainServer;

	bool _IsFull() const;
	bool _HasRoom() const;
	bool _MayWait() const;
	bool _NeedsTurn() const;
	bool _TakeLock(std::unique_lock<std::mutex>& locker, bool evenIfDying);
	void _ReleaseLock();
	void _AddHolder(thread_id holder);
	bool _RemoveHolder(thread_id holder);
	bool _IsHeldByAnother() const;

	const int32 fToken;
	// The server's, under its lock: whether it stands in the line of those that are ready.
	bool fIsInLine;

	// Guards all that follows.
	mutable std::mutex fMutex;
	std::condition_variable fMessageAdded;
	std::condition_variable fRoomMade;
	std::condition_variable fUnlocked;

	BLooper* fLooper;
	MessageQueue fQueue;
	int32 fWaitingPosters;
	bool fWaitsForMessage;

	// The lock of a looper with a thread of its own. Who waits gets it before the thread that gave
	// it away.
	thread_id fOwner;
	int32 fLockCount;
	int32 fWaitingLockers;

	// Who has a looper of the main thread locked, and how often: see LockHolder. As none of them can
	// wait for another one below it on the stack there may be several.
	struct Holder {
		thread_id id;
		int32 count;
	};
	std::vector<Holder> fHolders;

	thread_id fThread;
	bool fIsMainServed;
	bool fIsStarted;
	bool fIsEntered;
	bool fIsDying;
};


typedef std::shared_ptr<LooperRecord> LooperRecordRef;


#endif // LOOPER_RECORD_H
