/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <LooperPrivate.h>

#include <memory>

#include <LooperRegistry.h>
#include <MainServer.h>
#include <MessageFilter.h>


/*!	In the constructor of an application or a window: it gets no thread of its own, and no message
	until Start().
*/
void
LooperPrivate::ServeByMainThread(BLooper* looper)
{
	// There has to be a server before the main thread waits for anybody.
	MainServer::Default();
	LooperRegistry::Default()->Find(looper)->ServeByMainThread();
}


/*!	From BApplication::Run() and the first BWindow::Show(), on the main thread. */
void
LooperPrivate::Start(BLooper* looper)
{
	LooperRegistry::Default()->Find(looper)->Start(find_thread(NULL));
}


bool
LooperPrivate::IsStarted(const BLooper* looper)
{
	LooperRecordRef record = LooperRegistry::Default()->Find(looper);
	return record != NULL && record->IsStarted();
}


/*!	The first thing in Quit() and in a destructor, more than once is harmless; the end of ~BLooper()
	ends it. Posting to the looper and locking it fail from here on, and what was queued is gone.
*/
void
LooperPrivate::BeginDestruction(BLooper* looper)
{
	LooperRegistry::Default()->Find(looper)->BeginDestruction();
}


/*!	True for a looper that is gone, too. */
bool
LooperPrivate::IsDying(const BLooper* looper)
{
	LooperRecordRef record = LooperRegistry::Default()->Find(looper);
	return record == NULL || record->IsDying();
}


/*!	Deletes a looper of the main thread, which is dying, as its own thread would: it is locked in its
	destructors.
*/
void
LooperPrivate::Delete(BLooper* looper)
{
	LooperRecordRef record = LooperRegistry::Default()->Find(looper);
	record->BeginActing();
	delete looper;
	record->EndActing();
}


/*!	The life of a plain looper's thread. It owns \a data, a reference to the looper's record. */
status_t
LooperPrivate::_Loop(void* data)
{
	std::unique_ptr<LooperRecordRef> handedOver(static_cast<LooperRecordRef*>(data));
	LooperRecordRef record = *handedOver;

	while (record->WaitForMessage() && record->Lock()) {
		_DeliverNext(record);
		// It may have deleted the looper; the lock is the record's.
		record->Unlock();
	}

	// Quit() was called, here inside of a handler, or on another thread, which leaves the looper to
	// this one.
	record->LockToDestroy();
	delete record->Looper();
	return B_OK;
}


bool
LooperPrivate::PassesFilters(BMessage* message, BHandler* handler)
{
	for (BMessageFilter* filter : handler->fFilters) {
		BHandler* target = handler;
		if (filter->Command() == message->what
			&& filter->Filter(message, &target) == B_SKIP_MESSAGE)
			return false;
	}
	return true;
}


/*!	Hands the next message to its handler, if that still belongs to the looper. */
void
LooperPrivate::_DeliverNext(const LooperRecordRef& record)
{
	int32 token;
	std::unique_ptr<BMessage> message = record->Next(&token);
	BLooper* looper = record->Looper();
	if (message == NULL || looper == NULL)
		return;

	BHandler* handler = looper;
	if (token != 0 && token != record->Token())
		handler = LooperRegistry::Default()->HandlerByToken(token);

	if (handler != NULL && handler->Looper() == looper)
		looper->DispatchMessage(message.get(), handler);
}
