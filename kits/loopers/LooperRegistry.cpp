/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <LooperRegistry.h>

#include <Looper.h>
#include <ThreadPrivate.h>


// Somebody waits for a thread, which may have to stop waiting for room itself.
static void
wake_posters()
{
	std::vector<LooperRecordRef> loopers;
	LooperRegistry::Default()->GetLoopers(loopers);
	for (const LooperRecordRef& record : loopers)
		record->WakePosters();
}

LooperRegistry::LooperRegistry()
	: fLastToken(0)
{
	set_await_notifier(wake_posters);
}


LooperRegistry*
LooperRegistry::Default()
{
	static LooperRegistry* const sRegistry = new LooperRegistry;
	return sRegistry;
}


void
LooperRegistry::AddHandler(BHandler* handler)
{
	std::lock_guard<std::mutex> locker(fMutex);
	int32 token = ++fLastToken;
	fHandlers[handler] = Entry{token, NULL};
	fHandlersByToken[token] = handler;
}


/*!	The handler, or the looper, is gone: nobody finds it any more. */
void
LooperRegistry::RemoveHandler(BHandler* handler)
{
	// The last reference is given up after the lock.
	LooperRecordRef looper;
	std::lock_guard<std::mutex> locker(fMutex);
	auto found = fHandlers.find(handler);
	if (found == fHandlers.end())
		return;

	looper = std::move(found->second.looper);
	fLoopers.erase(found->second.token);
	fHandlersByToken.erase(found->second.token);
	fHandlers.erase(found);
}


/*!	The looper to which a handler belongs, an empty reference for none. */
void
LooperRegistry::SetLooper(const BHandler* handler, const LooperRecordRef& looper)
{
	std::lock_guard<std::mutex> locker(fMutex);
	auto found = fHandlers.find(handler);
	if (found != fHandlers.end())
		found->second.looper = looper;
}


/*!	Makes a looper of a handler that is known. Both have the same token. */
LooperRecordRef
LooperRegistry::AddLooper(BLooper* looper)
{
	std::lock_guard<std::mutex> locker(fMutex);
	Entry& entry = fHandlers[looper];
	entry.looper = std::make_shared<LooperRecord>(looper, entry.token);
	fLoopers[entry.token] = entry.looper;
	return entry.looper;
}


/*!	The looper of a handler, which is only looked up, and the handler's token. Empty when either is
	gone.
*/
LooperRecordRef
LooperRegistry::Find(const BHandler* handler, int32* _handlerToken) const
{
	std::lock_guard<std::mutex> locker(fMutex);
	auto found = fHandlers.find(handler);
	if (found == fHandlers.end())
		return NULL;

	*_handlerToken = found->second.token;
	return found->second.looper;
}


/*!	Empty when the looper, which is only looked up, is gone. */
LooperRecordRef
LooperRegistry::Find(const BLooper* looper) const
{
	int32 token;
	return Find(static_cast<const BHandler*>(looper), &token);
}


LooperRecordRef
LooperRegistry::FindByToken(int32 token) const
{
	std::lock_guard<std::mutex> locker(fMutex);
	auto found = fLoopers.find(token);
	return found != fLoopers.end() ? found->second : NULL;
}


/*!	NULL when the handler is gone. Only its looper's thread may use it. */
BHandler*
LooperRegistry::HandlerByToken(int32 token) const
{
	std::lock_guard<std::mutex> locker(fMutex);
	auto found = fHandlersByToken.find(token);
	return found != fHandlersByToken.end() ? found->second : NULL;
}


/*!	All loopers, the oldest first. */
void
LooperRegistry::GetLoopers(std::vector<LooperRecordRef>& _loopers) const
{
	std::lock_guard<std::mutex> locker(fMutex);
	_loopers.clear();
	for (const auto& entry : fLoopers)
		_loopers.push_back(entry.second);
}
