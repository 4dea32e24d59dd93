/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "NameLookup.h"

#include <condition_variable>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <sys/socket.h>

#include <OS.h>
#include <String.h>


using Addresses = std::unique_ptr<addrinfo, void (*)(addrinfo*)>;


/*!	What a lookup and the thread that asks the resolver have in common. It lives as long as either
	of them.
*/
struct NameLookup::Record {
	Record(const char* name, uint32 number);

	void Resolve();

	// Not changed once the thread runs.
	BString host;
	char port[16];

	// Guards the following.
	std::mutex lock;
	std::condition_variable hasEnded;
	bool isDone;
	bool isCanceled;
	int error;
	Addresses addresses;
};


NameLookup::Record::Record(const char* name, uint32 number)
	: host(name),
	  isDone(false),
	  isCanceled(false),
	  error(0),
	  addresses(NULL, freeaddrinfo)
{
	snprintf(port, sizeof(port), "%u", static_cast<unsigned int>(number));
}


/*!	Asks the resolver, for as long as that takes. */
void
NameLookup::Record::Resolve()
{
	addrinfo hints;
	memset(&hints, 0, sizeof(hints));
	hints.ai_family = AF_INET;
	hints.ai_socktype = SOCK_STREAM;
	addrinfo* found = NULL;
	const int result = getaddrinfo(host.String(), port, &hints, &found);

	const std::lock_guard<std::mutex> locker(lock);
	error = result;
	if (result == 0)
		addresses.reset(found);
	isDone = true;
	hasEnded.notify_all();
}


// #pragma mark -


/*!	\param port In host order; it stands in the addresses that are found. Above 65,535 it is the
	resolver's to judge.
*/
NameLookup::NameLookup(const char* host, uint32 port)
	: fRecord(std::make_shared<Record>(host, port)),
	  fAddresses(NULL, freeaddrinfo)
{
}


NameLookup::~NameLookup() = default;


/*!	Waits until the resolver has answered or the lookup is canceled.
	\param canBeCanceled Whether Cancel() shall end it. If not, or where no thread can be had, the
	resolver is asked by the caller itself and cannot be left behind.
	\return 0, or one of the resolver's error codes; also 0, without an address, once the lookup is
	canceled.
*/
int
NameLookup::Run(bool canBeCanceled)
{
	if (!canBeCanceled || !_StartThread())
		fRecord->Resolve();

	std::unique_lock<std::mutex> locker(fRecord->lock);
	while (!fRecord->isDone && !fRecord->isCanceled)
		fRecord->hasEnded.wait(locker);
	if (fRecord->isCanceled)
		return 0;
	fAddresses = std::move(fRecord->addresses);
	return fRecord->error;
}


/*!	Ends Run() at once, where it can be canceled. */
void
NameLookup::Cancel()
{
	const std::lock_guard<std::mutex> locker(fRecord->lock);
	fRecord->isCanceled = true;
	fRecord->hasEnded.notify_all();
}


bool
NameLookup::_StartThread()
{
	auto shared = std::make_unique<std::shared_ptr<Record>>(fRecord);
	const thread_id thread = spawn_thread(_ThreadEntry, "HL:Resolve", B_NORMAL_PRIORITY,
		shared.get());
	if (thread < 0)
		return false;

	// The share is the thread's from here on.
	static_cast<void>(shared.release());
	resume_thread(thread);
	return true;
}


status_t
NameLookup::_ThreadEntry(void* data)
{
	const std::unique_ptr<std::shared_ptr<Record>> shared(
		static_cast<std::shared_ptr<Record>*>(data));
	(*shared)->Resolve();
	return B_OK;
}
