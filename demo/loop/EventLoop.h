/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_EVENT_LOOP_H
#define DEMO_EVENT_LOOP_H


#include "TimerQueue.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <vector>

#include <poll.h>


namespace demo {


class Channel;


/*!	Waits for its channels and timers and serves whichever is ready. Sleeps when nothing is.
	Everything runs on the thread that calls \c Run(); only \c Stop() may come from another one.
*/
class EventLoop {
public:
	EventLoop();
	~EventLoop();

	bool InitCheck() const { return fWakeDescriptor >= 0; }

	void Add(std::unique_ptr<Channel> channel);
	size_t CountChannels() const { return fChannels.size(); }
	TimerQueue& Timers() { return fTimers; }

	void Run();
	void Stop();
	void DeleteAll();

private:
	void _Poll();
	void _ServeReady();
	bool _DeleteDone();

	// Touched by whoever stops the loop, too.
	std::atomic<bool> fStopping{false};
	int fWakeDescriptor;

	std::vector<std::unique_ptr<Channel>> fChannels;
	std::vector<pollfd> fPolled;
	TimerQueue fTimers;
};


} // namespace demo


#endif // DEMO_EVENT_LOOP_H
