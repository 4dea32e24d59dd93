/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Delivery.h"

#include <Messenger.h>


// How long to wait for room in the target's queue, in microseconds. Two loopers that wait for each
// other go on after that.
static const bigtime_t kPatience = 1000000;


/*!	A target that is gone, or never was, takes nothing, which is no error.
	\return \c false when the target had no room in time: a thread that has nothing else to do tries
	again, everybody else does without.
*/
bool
Deliver(const BMessenger& target, BMessage* message)
{
	const status_t status = target.SendMessage(message, static_cast<BHandler*>(NULL), kPatience);
	return status != B_TIMED_OUT && status != B_WOULD_BLOCK;
}
