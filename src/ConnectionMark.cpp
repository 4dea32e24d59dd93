/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ConnectionMark.h"

#include <Message.h>


static const char* const kField = "connection";


void
AddConnection(BMessage* message, uint32 connection)
{
	if (connection != 0)
		message->AddUInt32(kField, connection);
}


/*!	\return 0 for what was posted on nobody's behalf. */
uint32
ConnectionOf(const BMessage* message)
{
	return message->GetUInt32(kField, 0);
}


/*!	\return \c false also for what was posted on nobody's behalf. */
bool
IsOfOtherConnection(const BMessage* message, uint32 connection)
{
	return message->GetUInt32(kField, connection) != connection;
}
