/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <MessageFilter.h>


/*!	\param what The code of the messages that are seen.
	\param hook Asked in the place of Filter(); NULL for none.
*/
BMessageFilter::BMessageFilter(uint32 what, filter_hook hook)
	: fWhat(what),
	  fHook(hook)
{
}


BMessageFilter::~BMessageFilter() = default;


/*!	Differs from Haiku: the message stays with its handler, whatever \a _target is set to.
	\return \c B_SKIP_MESSAGE when the handler is not to see the message.
*/
filter_result
BMessageFilter::Filter(BMessage* message, BHandler** _target)
{
	return fHook != NULL ? fHook(message, _target, this) : B_DISPATCH_MESSAGE;
}
