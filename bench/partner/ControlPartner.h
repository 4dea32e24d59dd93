/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CONTROL_PARTNER_H
#define CONTROL_PARTNER_H


// The server's end of one control connection, until the client closes it.

// Greets, waits for the word, and sends that many chat lines, each a transaction of 62 bytes.
void ServeChat(int listener, long count);

// Greets, answers a login and whatever is asked for, and, once it has the word, a request for files
// with that many.
void ServeListing(int listener, long count);


#endif // CONTROL_PARTNER_H
