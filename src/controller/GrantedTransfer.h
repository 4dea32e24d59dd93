/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef GRANTED_TRANSFER_H
#define GRANTED_TRANSFER_H


#include <memory>

#include <Looper.h>
#include <Message.h>
#include <Messenger.h>
#include <OS.h>

#include "HotlineProtocol.h"
#include "TransferThreads.h"


/*!	A transfer that the server has granted, until a thread takes it over: its record is filled in
	here. Lives in the main window's thread; borrows the target that the thread posts to.
*/
template<class Info>
class GrantedTransfer {
public:
	GrantedTransfer(const BMessage* grant, BLooper* target);

	Info* operator->() const { return fInfo.get(); }

	[[nodiscard]] bool Start(status_t (*entry)(void*), const char* threadName, int32 priority);

private:
	std::unique_ptr<Info> fInfo;
};


template<class Info>
GrantedTransfer<Info>::GrantedTransfer(const BMessage* grant, BLooper* target)
	: fInfo(new Info())
{
	fInfo->address = grant->GetString("address", "");
	fInfo->port = grant->GetUInt16("port", kDefaultPort);
	fInfo->ref = grant->GetUInt32("ref", 0);
	fInfo->target = BMessenger(target);
}


/*!	Starts a thread and gives it the record, which is not to be used here any more. Resuming it
	cannot fail: nobody else knows a thread that was only just spawned.
	\return \c false if there is no thread.
*/
template<class Info>
bool
GrantedTransfer<Info>::Start(status_t (*entry)(void*), const char* threadName, int32 priority)
{
	const thread_id thread = spawn_thread(entry, threadName, priority, fInfo.get());
	if (thread < 0)
		return false;

	// The record is the thread's from here on.
	static_cast<void>(fInfo.release());
	resume_thread(thread);
	return true;
}


#endif // GRANTED_TRANSFER_H
