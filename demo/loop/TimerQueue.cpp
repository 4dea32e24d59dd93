/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TimerQueue.h"

#include <algorithm>


namespace demo {


/*!	Runs the action once, after the delay.
	\return A number for \c Cancel(), never 0.
*/
uint64_t
TimerQueue::Add(std::chrono::milliseconds delay, Action action)
{
	uint64_t id = ++fLastId;
	Clock::time_point due = Clock::now() + delay;
	fActions.emplace(Key(due, id), std::move(action));
	fDueTimes.emplace(id, due);
	return id;
}


/*!	Forgets an action that has not run yet; any other number is ignored. */
void
TimerQueue::Cancel(uint64_t id)
{
	auto found = fDueTimes.find(id);
	if (found == fDueTimes.end())
		return;

	fActions.erase(Key(found->second, id));
	fDueTimes.erase(found);
}


/*!	Rounded up, so that whoever sleeps that long finds the action due; -1 when nothing waits. */
int
TimerQueue::MillisecondsToNext() const
{
	if (fActions.empty())
		return -1;

	auto left = std::chrono::ceil<std::chrono::milliseconds>(
		fActions.begin()->first.first - Clock::now());
	return static_cast<int>(std::clamp<int64_t>(left.count(), 0, 60 * 60 * 1000));
}


/*!	Runs what is due by now. What an action adds waits for the next call, however short its delay.
*/
void
TimerQueue::RunDue()
{
	Clock::time_point now = Clock::now();
	uint64_t newest = fLastId;
	auto next = fActions.begin();
	while (next != fActions.end() && next->first.first <= now) {
		uint64_t id = next->first.second;
		if (id > newest) {
			++next;
			continue;
		}
		Action action = std::move(next->second);
		fActions.erase(next);
		fDueTimes.erase(id);
		action();
		// The action may have added and cancelled others.
		next = fActions.begin();
	}
}


} // namespace demo
