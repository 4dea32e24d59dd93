/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MESSAGE_RUNNER_H
#define MESSAGE_RUNNER_H


#include <Messenger.h>


/*!	Sends a copy of a message in regular intervals, in microseconds, until it was sent \a count
	times, its target is gone or the runner is deleted; -1 is without end.
	Differs from Haiku: while a copy waits in the target's queue no other one is sent, so that a
	busy target is not flooded.
*/
class BMessageRunner {
public:
	BMessageRunner(BMessenger target, const BMessage* message, bigtime_t interval,
		int32 count = -1);
	BMessageRunner(BMessenger target, const BMessage& message, bigtime_t interval, int32 count = -1)
		= delete;
	BMessageRunner(BMessenger target, const BMessage* message, bigtime_t interval, int32 count,
		BMessenger replyTo)
		= delete;
	BMessageRunner(BMessenger target, const BMessage& message, bigtime_t interval, int32 count,
		BMessenger replyTo)
		= delete;
	BMessageRunner(const BMessageRunner&) = delete;
	virtual ~BMessageRunner();

	BMessageRunner& operator=(const BMessageRunner&) = delete;

private:
	int32 fToken;
};


#endif // MESSAGE_RUNNER_H
