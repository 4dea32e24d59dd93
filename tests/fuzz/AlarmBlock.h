/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ALARM_BLOCK_H
#define ALARM_BLOCK_H


#include <csignal>


/*!	While it lives, threads are started that the fuzzer's alarm does not interrupt: a call that is
	interrupted fails, as it should, but not for the input's sake.
*/
class AlarmBlock {
public:
	AlarmBlock()
	{
		sigset_t alarm;
		sigemptyset(&alarm);
		sigaddset(&alarm, SIGALRM);
		pthread_sigmask(SIG_BLOCK, &alarm, &fBefore);
	}

	AlarmBlock(const AlarmBlock&) = delete;
	~AlarmBlock() { pthread_sigmask(SIG_SETMASK, &fBefore, NULL); }

	AlarmBlock& operator=(const AlarmBlock&) = delete;

private:
	sigset_t fBefore;
};


#endif // ALARM_BLOCK_H
