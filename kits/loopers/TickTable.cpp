/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TickTable.h>

#include <algorithm>
#include <chrono>

#include <LooperRegistry.h>


// In microseconds; a shorter interval is taken for this one.
static const bigtime_t kMinInterval = 50000;

TickTable::TickTable()
	: fLastToken(0),
	  fThread(-1)
{
}


TickTable*
TickTable::Default()
{
	static TickTable* const sTable = new TickTable;
	return sTable;
}


/*!	\return A token that is never given again, or an error. */
int32
TickTable::Add(const BMessenger& target, const BMessage& message, bigtime_t interval, int32 count)
{
	if (interval <= 0 || !target.IsValid())
		return B_BAD_VALUE;
	if (count == 0)
		return B_ERROR;

	std::lock_guard<std::mutex> locker(fMutex);
	if (fThread < 0) {
		fThread = spawn_thread(_Run, "message runners", B_URGENT_DISPLAY_PRIORITY, this);
		if (fThread < 0)
			return fThread;
		resume_thread(fThread);
	}

	interval = std::max(interval, kMinInterval);
	Runner runner{target, message, interval, count, system_time() + interval, false};
	fRunners.emplace(++fLastToken, runner);
	fChanged.notify_one();
	return fLastToken;
}


void
TickTable::Remove(int32 token)
{
	std::lock_guard<std::mutex> locker(fMutex);
	fRunners.erase(token);
}


/*!	The target has taken the runner's tick out of its queue. */
void
TickTable::TickDelivered(int32 token)
{
	std::lock_guard<std::mutex> locker(fMutex);
	auto found = fRunners.find(token);
	if (found != fRunners.end())
		found->second.isTickQueued = false;
}


status_t
TickTable::_Run(void* data)
{
	static_cast<TickTable*>(data)->_SendTicks();
	return B_OK;
}


void
TickTable::_SendTicks()
{
	std::unique_lock<std::mutex> locker(fMutex);
	while (true) {
		bigtime_t now = system_time();
		bigtime_t next = INT64_MAX;
		for (auto entry = fRunners.begin(); entry != fRunners.end();) {
			Runner& runner = entry->second;
			if (runner.next <= now && !_SendTick(entry->first, runner, now)) {
				entry = fRunners.erase(entry);
				continue;
			}
			next = std::min(next, runner.next);
			++entry;
		}

		if (next == INT64_MAX)
			fChanged.wait(locker);
		else
			fChanged.wait_for(locker, std::chrono::microseconds(next - now));
	}
}


/*!	With the lock held. A tick that still waits for its delivery is the only one.
	\return \c false when this was the last, or the target is gone.
*/
bool
TickTable::_SendTick(int32 token, Runner& runner, bigtime_t now)
{
	runner.next += runner.interval;
	if (runner.next <= now)
		runner.next = now + runner.interval;
	LooperRecordRef record = LooperRegistry::Default()->FindByToken(runner.target.fLooperToken);
	if (record == NULL || record->IsDying())
		return false;
	if (runner.isTickQueued)
		return true;

	runner.isTickQueued = true;
	if (record->Post(&runner.message, runner.target.fHandlerToken, token) != B_OK)
		return false;
	if (runner.ticksLeft > 0)
		runner.ticksLeft--;
	return runner.ticksLeft != 0;
}
