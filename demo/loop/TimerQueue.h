/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_TIMER_QUEUE_H
#define DEMO_TIMER_QUEUE_H


#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <utility>


namespace demo {


/*!	Actions that wait for their time, in the order in which they are due; those due at the same
	moment keep the order in which they were added. Belongs to the thread of its event loop.
*/
class TimerQueue {
public:
	using Clock = std::chrono::steady_clock;
	using Action = std::function<void()>;

	uint64_t Add(std::chrono::milliseconds delay, Action action);
	void Cancel(uint64_t id);

	int MillisecondsToNext() const;
	void RunDue();

private:
	using Key = std::pair<Clock::time_point, uint64_t>;

	std::map<Key, Action> fActions;
	std::map<uint64_t, Clock::time_point> fDueTimes;
	uint64_t fLastId = 0;
};


} // namespace demo


#endif // DEMO_TIMER_QUEUE_H
