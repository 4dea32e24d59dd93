/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Looper.h>

#include <algorithm>
#include <memory>

#include <LooperPrivate.h>
#include <LooperRegistry.h>
#include <StrictChecks.h>


/*!	The looper is locked until it runs. \a portCapacity is not needed here. */
BLooper::BLooper(const char* name, int32 priority, int32 /*portCapacity*/)
	: BHandler(name),
	  fPriority(priority)
{
	LooperRegistry::Default()->AddLooper(this);
	fHandlers.push_back(this);
	fLooper = this;
}


/*!	Lets go of the handlers; they belong to others. Whoever holds the looper's address meets a
	looper that is gone.
*/
BLooper::~BLooper()
{
	LooperRegistry* registry = LooperRegistry::Default();
	LooperRecordRef record = registry->Find(this);
	record->BeginDestruction();

	for (BHandler* handler : fHandlers) {
		handler->fLooper = NULL;
		registry->SetLooper(handler, NULL);
	}
	registry->RemoveHandler(this);
	record->EndDestruction();
}


status_t
BLooper::PostMessage(uint32 command)
{
	BMessage message(command);
	return PostMessage(&message);
}


/*!	Queues a copy for the looper itself.
	\return \c B_BAD_PORT_ID when the looper is dying or gone.
*/
status_t
BLooper::PostMessage(BMessage* message)
{
	CHECK_EXISTS(this);
	if (message == NULL)
		return B_BAD_VALUE;

	LooperRecordRef record = LooperRegistry::Default()->Find(this);
	if (record == NULL)
		return B_BAD_PORT_ID;

	const status_t status = record->Post(message, record->Token());
	MainServer::Shake();
	return status;
}


/*!	Hands a message to its handler. Asks QuitRequested() when the looper itself is asked to quit,
	and quits.
*/
void
BLooper::DispatchMessage(BMessage* message, BHandler* handler)
{
	if (message->what != B_QUIT_REQUESTED || handler != this) {
		handler->MessageReceived(message);
		return;
	}

	if (QuitRequested())
		Quit();
}


void
BLooper::MessageReceived(BMessage* message)
{
	BHandler::MessageReceived(message);
}


/*!	The handler must not belong to a looper yet. */
void
BLooper::AddHandler(BHandler* handler)
{
	CHECK_LOCKED(this);
	if (handler == NULL || handler->Looper() != NULL)
		return;

	LooperRegistry* registry = LooperRegistry::Default();
	fHandlers.push_back(handler);
	handler->fLooper = this;
	registry->SetLooper(handler, registry->Find(this));
}


/*!	What waits for the handler in the queue is not delivered any more. The caller owns the handler.
*/
bool
BLooper::RemoveHandler(BHandler* handler)
{
	CHECK_LOCKED(this);
	if (handler == NULL || handler == this || handler->Looper() != this)
		return false;

	fHandlers.erase(std::remove(fHandlers.begin(), fHandlers.end(), handler), fHandlers.end());
	handler->fLooper = NULL;
	LooperRegistry::Default()->SetLooper(handler, NULL);
	return true;
}


/*!	Starts the looper's thread, and unlocks the looper.
	\return The thread's id, or an error when there can be no more threads.
*/
thread_id
BLooper::Run()
{
	CHECK_LOCKED(this);
	LooperRecordRef record = LooperRegistry::Default()->Find(this);
	if (record->IsStarted())
		return record->Thread();

	auto handedOver = std::make_unique<LooperRecordRef>(record);
	const char* name = Name() != NULL ? Name() : "anonymous looper";
	thread_id thread = spawn_thread(LooperPrivate::_Loop, name, fPriority, handedOver.get());
	if (thread < 0)
		return thread;

	static_cast<void>(handedOver.release());
	record->Start(thread);
	record->UnlockFully();
	resume_thread(thread);
	return thread;
}


/*!	Deletes the looper, which must be locked by the caller; it takes no more messages and loses
	those that it has.
	On another thread than its own this waits until the looper's thread has ended.
	Differs from Haiku: on its own thread it returns, where nothing of the looper may be touched any
	more.
*/
void
BLooper::Quit()
{
	CHECK_LOCKED(this);
	LooperRecordRef record = LooperRegistry::Default()->Find(this);
	if (record == NULL || !record->IsLocked() || !record->BeginDestruction())
		return;

	thread_id thread = record->Thread();
	if (record->IsMainServed() || thread < 0 || thread == find_thread(NULL)) {
		delete this;
		return;
	}

	record->UnlockFully();
	wait_for_thread(thread, NULL);
}


bool
BLooper::QuitRequested()
{
	return true;
}


/*!	Waits until the looper is free, or the caller's own.
	Differs from Haiku: a looper that is served by the main thread can be locked there only. It
	fails on other threads, as on every looper that is dying or gone.
*/
bool
BLooper::Lock()
{
	LooperRecordRef record = LooperRegistry::Default()->Find(this);
	if (record == NULL)
		return false;
	MainServer::Shake();
	return record->Lock();
}


void
BLooper::Unlock()
{
	LooperRecordRef record = LooperRegistry::Default()->Find(this);
	if (record != NULL)
		record->Unlock();
}


bool
BLooper::IsLocked() const
{
	LooperRecordRef record = LooperRegistry::Default()->Find(this);
	return record != NULL && record->IsLocked();
}


/*!	The thread that delivers the looper's messages, \c B_BAD_THREAD_ID before it runs. */
thread_id
BLooper::Thread() const
{
	LooperRecordRef record = LooperRegistry::Default()->Find(this);
	thread_id thread = record != NULL ? record->Thread() : -1;
	return thread >= 0 ? thread : B_BAD_THREAD_ID;
}
