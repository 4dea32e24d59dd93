/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TICK_TABLE_H
#define TICK_TABLE_H


#include <condition_variable>
#include <map>
#include <mutex>

#include <Messenger.h>
#include <OS.h>


/*!	The message runners, and the one thread that sends their ticks. For any thread. There is one,
	and it is never destroyed.
*/
class TickTable {
public:
	static TickTable* Default();

	int32 Add(const BMessenger& target, const BMessage& message, bigtime_t interval, int32 count);
	void Remove(int32 token);

	void TickDelivered(int32 token);

private:
	struct Runner {
		BMessenger target;
		BMessage message;
		bigtime_t interval;
		// -1 is without end.
		int32 ticksLeft;
		bigtime_t next;
		bool isTickQueued;
	};

	TickTable();
	~TickTable() = delete;

	static status_t _Run(void* data);
	void _SendTicks();
	bool _SendTick(int32 token, Runner& runner, bigtime_t now);

	// Guards everything. Held while a tick is posted, so that a runner that is gone sends none.
	mutable std::mutex fMutex;
	std::condition_variable fChanged;
	std::map<int32, Runner> fRunners;
	int32 fLastToken;
	thread_id fThread;
};


#endif // TICK_TABLE_H
