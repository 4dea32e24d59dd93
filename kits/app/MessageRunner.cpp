/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <MessageRunner.h>

#include <TickTable.h>


/*!	\a interval is in microseconds; less than 50,000 is taken for that. */
BMessageRunner::BMessageRunner(BMessenger target, const BMessage* message, bigtime_t interval,
	int32 count)
	: fToken(TickTable::Default()->Add(target, *message, interval, count))
{
}


BMessageRunner::~BMessageRunner()
{
	TickTable::Default()->Remove(fToken);
}
