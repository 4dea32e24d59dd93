/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <MessageRunner.h>

#include <TickTable.h>


/*!	\a interval is in microseconds; less than 50,000 is taken for that. */
BMessageRunner::BMessageRunner(BMessenger target, const BMessage* message, bigtime_t interval,
	int32 count)
	: fToken(B_BAD_VALUE),
	  fStatus(B_BAD_VALUE)
{
	if (message == NULL)
		return;

	fToken = TickTable::Default()->Add(target, *message, interval, count);
	fStatus = fToken < 0 ? fToken : B_OK;
}


BMessageRunner::BMessageRunner(BMessenger target, const BMessage& message, bigtime_t interval,
	int32 count)
	: BMessageRunner(target, &message, interval, count)
{
}


BMessageRunner::~BMessageRunner()
{
	TickTable::Default()->Remove(fToken);
}


status_t
BMessageRunner::SetInterval(bigtime_t interval)
{
	return TickTable::Default()->SetInterval(fToken, interval);
}


status_t
BMessageRunner::SetCount(int32 count)
{
	return TickTable::Default()->SetCount(fToken, count);
}


/*!	\a _count receives how many ticks are left. \c B_BAD_VALUE when the runner has ended. */
status_t
BMessageRunner::GetInfo(bigtime_t* _interval, int32* _count) const
{
	return TickTable::Default()->GetInfo(fToken, _interval, _count);
}
