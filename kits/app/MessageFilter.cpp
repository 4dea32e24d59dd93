/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <MessageFilter.h>


/*!	\param what The code of the messages that are seen. */
BMessageFilter::BMessageFilter(uint32 what)
	: fWhat(what)
{
}


BMessageFilter::~BMessageFilter() = default;


/*!	Differs from Haiku: the message stays with its handler, whatever \a _target is set to.
	\return \c B_SKIP_MESSAGE when the handler is not to see the message.
*/
filter_result
BMessageFilter::Filter(BMessage* /*message*/, BHandler** /*_target*/)
{
	return B_DISPATCH_MESSAGE;
}
