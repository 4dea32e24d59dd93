/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <LooperRecord.h>

#include <algorithm>
#include <new>

#include <LockHolder.h>
#include <LooperPrivate.h>
#include <ThreadPrivate.h>
#include <TickTable.h>


// What stands in the place of the lock's owner when there is none.
static const thread_id kNobody = -1;
static const thread_id kWhoWaits = -2;


/*!	As on Haiku a new looper is locked by the thread that makes it, until it runs. */
LooperRecord::LooperRecord(BLooper* looper, int32 token)
	: fToken(token),
	  fIsInLine(false),
	  fLooper(looper),
	  fWaitingPosters(0),
	  fWaitsForMessage(false),
	  fOwner(find_thread(NULL)),
	  fLockCount(1),
	  fWaitingLockers(0),
	  fThread(-1),
	  fIsMainServed(false),
	  fIsStarted(false),
	  fIsEntered(false),
	  fIsDying(false)
{
}


/*!	NULL when the looper is gone. */
BLooper*
LooperRecord::Looper() const
{
	std::lock_guard<std::mutex> locker(fMutex);
	return fLooper;
}


/*!	Queues a copy of the message. While the queue is full, threads that may do so wait.
	\param runnerToken The runner whose tick this is, which never waits; 0 for none.
	\return \c B_BAD_PORT_ID as soon as the looper is dying or gone.
*/
status_t
LooperRecord::Post(const BMessage* message, int32 handlerToken, int32 runnerToken)
{
	std::unique_ptr<BMessage> copy(new (std::nothrow) BMessage(*message));
	if (copy == NULL || copy->fFields.Size() != message->fFields.Size())
		return B_NO_MEMORY;
	copy->fHandlerToken = handlerToken;
	copy->fRunnerToken = runnerToken;

	bool needsTurn;
	bool isFull;
	{
		std::unique_lock<std::mutex> locker(fMutex);
		if (runnerToken == 0 && _IsFull()) {
			fWaitingPosters++;
			while (!fIsDying && !_HasRoom() && _MayWait())
				fRoomMade.wait(locker);
			fWaitingPosters--;
		}
		if (fIsDying)
			return B_BAD_PORT_ID;

		bool wasEmpty = fQueue.CountMessages() == 0;
		fQueue.Add(copy.release());
		if (fWaitsForMessage)
			fMessageAdded.notify_one();
		needsTurn = wasEmpty && _NeedsTurn();
		isFull = runnerToken == 0 && _IsFull();
	}
	if (needsTurn)
		MainServer::Default()->_AddToLine(shared_from_this());
	if (isFull && is_main_thread())
		MainServer::Default()->_EndSlice();
	return B_OK;
}


/*!	Waits until there is a message, for the looper's own thread. False when the looper is dying. */
bool
LooperRecord::WaitForMessage()
{
	std::unique_lock<std::mutex> locker(fMutex);
	fWaitsForMessage = true;
	while (!fIsDying && fQueue.CountMessages() == 0)
		fMessageAdded.wait(locker);
	fWaitsForMessage = false;
	return !fIsDying;
}


/*!	The next message and the handler that it is for, or NULL. */
std::unique_ptr<BMessage>
LooperRecord::Next(int32* _handlerToken)
{
	std::unique_ptr<BMessage> message;
	{
		std::lock_guard<std::mutex> locker(fMutex);
		message.reset(fQueue.Next());
		if (fWaitingPosters > 0 && _HasRoom())
			fRoomMade.notify_all();
	}
	if (message == NULL)
		return message;

	*_handlerToken = message->fHandlerToken;
	if (message->fRunnerToken != 0)
		TickTable::Default()->TickDelivered(message->fRunnerToken);
	return message;
}


int32
LooperRecord::CountMessages() const
{
	std::lock_guard<std::mutex> locker(fMutex);
	return fQueue.CountMessages();
}


/*!	How many threads wait for room in the queue. */
int32
LooperRecord::CountWaitingPosters() const
{
	std::lock_guard<std::mutex> locker(fMutex);
	return fWaitingPosters;
}


/*!	Lets those who wait for room look again whether they still may. */
void
LooperRecord::WakePosters()
{
	std::lock_guard<std::mutex> locker(fMutex);
	if (fWaitingPosters > 0)
		fRoomMade.notify_all();
}


/*!	\return \c false when the looper is dying or gone, or when it is served by the main thread and
	this is another one.
*/
bool
LooperRecord::Lock()
{
	std::unique_lock<std::mutex> locker(fMutex);
	if (!fIsMainServed)
		return _TakeLock(locker, false);
	if (!is_main_thread() || fIsDying)
		return false;

	_AddHolder(LockHolder::Current());
	return true;
}


/*!	Takes the lock for the thread that is about to delete the looper. */
void
LooperRecord::LockToDestroy()
{
	std::unique_lock<std::mutex> locker(fMutex);
	_TakeLock(locker, true);
}


void
LooperRecord::Unlock()
{
	bool needsTurn;
	{
		std::lock_guard<std::mutex> locker(fMutex);
		if (!fIsMainServed) {
			if (fOwner == find_thread(NULL) && --fLockCount == 0)
				_ReleaseLock();
			return;
		}
		needsTurn = _RemoveHolder(LockHolder::Current()) && _NeedsTurn();
	}
	if (needsTurn)
		MainServer::Default()->_AddToLine(shared_from_this());
}


void
LooperRecord::UnlockFully()
{
	std::lock_guard<std::mutex> locker(fMutex);
	_ReleaseLock();
}


/*!	Whether the calling thread may touch the looper. */
bool
LooperRecord::IsLocked() const
{
	std::lock_guard<std::mutex> locker(fMutex);
	if (!fIsMainServed)
		return fOwner == find_thread(NULL);
	if (!is_main_thread())
		return false;

	const thread_id self = LockHolder::Current();
	return std::any_of(fHolders.begin(), fHolders.end(), [self](const Holder& holder) {
		return holder.id == self;
	});
}


void
LooperRecord::ServeByMainThread()
{
	std::lock_guard<std::mutex> locker(fMutex);
	fIsMainServed = true;
	_ReleaseLock();
	_AddHolder(LockHolder::Current());
}


bool
LooperRecord::IsMainServed() const
{
	std::lock_guard<std::mutex> locker(fMutex);
	return fIsMainServed;
}


/*!	From here on messages are delivered, and the lock that whoever made the looper has had on it is
	given back. False when the looper was started before.
*/
bool
LooperRecord::Start(thread_id thread)
{
	bool needsTurn;
	{
		std::lock_guard<std::mutex> locker(fMutex);
		if (fIsStarted)
			return false;
		fIsStarted = true;
		fThread = thread;
		fHolders.clear();
		needsTurn = _NeedsTurn();
	}
	if (needsTurn)
		MainServer::Default()->_AddToLine(shared_from_this());
	return true;
}


bool
LooperRecord::IsStarted() const
{
	std::lock_guard<std::mutex> locker(fMutex);
	return fIsStarted;
}


/*!	The thread that delivers the messages, -1 before Start(). */
thread_id
LooperRecord::Thread() const
{
	std::lock_guard<std::mutex> locker(fMutex);
	return fThread;
}


/*!	Marks a looper of the main thread as being inside of a handler. False when it is already, or is
	dying.
*/
bool
LooperRecord::Enter()
{
	std::lock_guard<std::mutex> locker(fMutex);
	if (fIsEntered || fIsDying)
		return false;

	fIsEntered = true;
	return true;
}


/*!	Enter() for a message, which waits while another one has the looper locked. */
bool
LooperRecord::EnterForMessage()
{
	{
		std::lock_guard<std::mutex> locker(fMutex);
		if (_IsHeldByAnother())
			return false;
	}
	return Enter();
}


/*!	Ends Enter(). What arrived meanwhile is served in a later turn. */
void
LooperRecord::Leave()
{
	bool needsTurn;
	{
		std::lock_guard<std::mutex> locker(fMutex);
		fIsEntered = false;
		needsTurn = _NeedsTurn();
	}
	if (needsTurn)
		MainServer::Default()->_AddToLine(shared_from_this());
}


/*!	From here on the main thread does what on Haiku the looper's own thread would do, which has it
	locked.
*/
void
LooperRecord::BeginActing()
{
	LockHolder::Push(fToken);
	std::lock_guard<std::mutex> locker(fMutex);
	_AddHolder(LockHolder::IdOf(fToken));
}


void
LooperRecord::EndActing()
{
	LockHolder::Pop();
	std::lock_guard<std::mutex> locker(fMutex);
	_RemoveHolder(LockHolder::IdOf(fToken));
}


/*!	The looper takes no more messages, loses those that it has, and cannot be locked any more.
	\return \c false when that has begun before.
*/
bool
LooperRecord::BeginDestruction()
{
	MessageQueue dropped;
	bool isMainServed;
	{
		std::lock_guard<std::mutex> locker(fMutex);
		if (fIsDying)
			return false;

		fIsDying = true;
		isMainServed = fIsMainServed;
		fQueue.MoveTo(dropped);
		fMessageAdded.notify_all();
		fRoomMade.notify_all();
		fUnlocked.notify_all();
	}
	if (isMainServed)
		MainServer::Default()->_AddDying(this);
	return true;
}


void
LooperRecord::EndDestruction()
{
	bool isMainServed;
	{
		std::lock_guard<std::mutex> locker(fMutex);
		fLooper = NULL;
		isMainServed = fIsMainServed;
	}
	if (isMainServed)
		MainServer::Default()->_RemoveDying(this);
}


bool
LooperRecord::IsDying() const
{
	std::lock_guard<std::mutex> locker(fMutex);
	return fIsDying;
}


bool
LooperRecord::_IsFull() const
{
	return fQueue.CountMessages() >= kMaxMessages || fQueue.CountBytes() >= kMaxBytes;
}


bool
LooperRecord::_HasRoom() const
{
	return fQueue.CountMessages() <= kMaxMessages / 4 * 3
		&& fQueue.CountBytes() <= kMaxBytes / 4 * 3;
}


/*!	Whether the calling thread can wait for room without keeping the looper from making it. */
bool
LooperRecord::_MayWait() const
{
	if (is_main_thread())
		return false;

	// The looper's own thread holds the lock while it is in a handler.
	return fOwner != find_thread(NULL) && !is_awaited();
}


bool
LooperRecord::_NeedsTurn() const
{
	return fIsMainServed && fIsStarted && !fIsDying && fQueue.CountMessages() > 0
		&& !_IsHeldByAnother();
}


bool
LooperRecord::_TakeLock(std::unique_lock<std::mutex>& locker, bool evenIfDying)
{
	if (fIsDying && !evenIfDying)
		return false;

	thread_id self = find_thread(NULL);
	if (fOwner != self && fOwner != kNobody) {
		// What was handed to those who waited before is not for who comes now.
		fWaitingLockers++;
		do {
			fUnlocked.wait(locker);
		} while (fOwner != kWhoWaits && (evenIfDying || !fIsDying));
		fWaitingLockers--;

		if (fIsDying && !evenIfDying) {
			if (fOwner == kWhoWaits)
				_ReleaseLock();
			return false;
		}
	}

	fOwner = self;
	fLockCount++;
	return true;
}


void
LooperRecord::_ReleaseLock()
{
	fOwner = fWaitingLockers > 0 ? kWhoWaits : kNobody;
	fLockCount = 0;
	fUnlocked.notify_all();
}


void
LooperRecord::_AddHolder(thread_id holder)
{
	for (Holder& other : fHolders) {
		if (other.id == holder) {
			other.count++;
			return;
		}
	}
	fHolders.push_back({holder, 1});
}


/*!	\return Whether the holder has let go of it altogether. */
bool
LooperRecord::_RemoveHolder(thread_id holder)
{
	for (auto found = fHolders.begin(); found != fHolders.end(); ++found) {
		if (found->id != holder)
			continue;
		if (--found->count > 0)
			return false;
		fHolders.erase(found);
		return true;
	}
	return false;
}


/*!	Whether the looper's own messages have to wait. */
bool
LooperRecord::_IsHeldByAnother() const
{
	const thread_id self = LockHolder::IdOf(fToken);
	return std::any_of(fHolders.begin(), fHolders.end(), [self](const Holder& holder) {
		return holder.id != self;
	});
}
