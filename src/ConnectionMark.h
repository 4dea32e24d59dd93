/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CONNECTION_MARK_H
#define CONNECTION_MARK_H


#include <SupportDefs.h>


class BMessage;


// What is posted on behalf of a connection says so in a field "connection" (uint32), the number of
// its HotlineClient, so that it is not taken for another connection's when it arrives late. 0 is
// the number of none.
void AddConnection(BMessage* message, uint32 connection);
uint32 ConnectionOf(const BMessage* message);
bool IsOfOtherConnection(const BMessage* message, uint32 connection);


#endif // CONNECTION_MARK_H
