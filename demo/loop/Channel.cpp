/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Channel.h"

#include <unistd.h>


namespace demo {


Channel::Channel(int descriptor)
	: fDescriptor(descriptor)
{
}


Channel::~Channel()
{
	if (fDescriptor >= 0)
		close(fDescriptor);
}


} // namespace demo
