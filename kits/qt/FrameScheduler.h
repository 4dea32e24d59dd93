/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FRAME_SCHEDULER_H
#define FRAME_SCHEDULER_H


#include <memory>
#include <vector>

#include <SupportDefs.h>


class FrameTimer;


/*!	Something that collects changes and hands them to Qt once per frame. Main thread only.
*/
class FrameClient {
public:
	FrameClient();
	FrameClient(const FrameClient&) = delete;
	virtual ~FrameClient();

	FrameClient& operator=(const FrameClient&) = delete;

	// Asks for a Flush() with the next frame, unless it is asked for already. From inside of
	// Flush(): with the one after it.
	void ScheduleFlush();
	// Flushes now what waits; nothing when nothing waits.
	void FlushNow();
	bool IsFlushScheduled() const { return fIsScheduled; }

protected:
	virtual void Flush() = 0;

private:
	friend class FrameScheduler;

	bool fIsScheduled;
};


/*!	Flushes its clients, in order of asking, 16 ms after the last time at the latest. Runs no timer
	while nothing waits.
	Main thread only. Needs the application.
*/
class FrameScheduler {
public:
	static FrameScheduler* Default();

	void Add(FrameClient* client);
	void Remove(FrameClient* client);
	void FlushAll();
	// Called before the application goes: no frame comes any more.
	void Stop();

private:
	friend class FrameTimer;

	FrameScheduler();
	~FrameScheduler() = delete;

	void _Start();

	std::vector<FrameClient*> fWaiting;
	// Those that the flush which is going on has not reached.
	std::vector<FrameClient*> fFlushing;
	bool fIsFlushing;
	std::unique_ptr<FrameTimer> fTimer;
	// In microseconds of system_time().
	bigtime_t fLastStart;
	bigtime_t fLastEnd;
};


#endif // FRAME_SCHEDULER_H
