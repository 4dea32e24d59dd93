/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "User.h"

#include "ByteOrder.h"


namespace demo {


/*!	The user's record in a user list. */
std::string
User::Entry() const
{
	std::string entry;
	append_16(entry, socket);
	append_16(entry, icon);
	append_16(entry, status);
	append_16(entry, static_cast<uint16_t>(nick.size()));
	entry += nick;
	return entry;
}


} // namespace demo
