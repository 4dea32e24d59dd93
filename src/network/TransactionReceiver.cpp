/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransactionReceiver.h"

#include <cerrno>
#include <initializer_list>
#include <sys/select.h>

#include "Socket.h"


/*!	Waits a second at most. In a burst there are bytes already: a look sees them for a quarter less
	than a wait, for which the system sets a clock and queues the thread.
	\return What select() does: more than 0 when there is something to read, 0 after the second, -1
	for an error.
*/
static int
wait_until_readable(int socket)
{
	static const timeval kLook = {0, 0};
	static const timeval kWait = {1, 0};
	int ready = 0;
	for (const timeval* time : {&kLook, &kWait}) {
		fd_set readable;
		FD_ZERO(&readable);
		FD_SET(socket, &readable);
		timeval timeout = *time;
		ready = select(socket + 1, &readable, NULL, NULL, &timeout);
		if (ready != 0)
			break;
	}
	return ready;
}


/*!	Waits a second at most for bytes and reads them.
	\param socket Open, of a number below \c FD_SETSIZE.
*/
TransactionReceiver::Result
TransactionReceiver::Receive(const Socket& socket)
{
	const int ready = wait_until_readable(socket.Number());
	if (ready < 0)
		return errno == EINTR ? kIncomplete : kEnd;
	if (ready == 0)
		return kIncomplete;

	const ssize_t received = socket.Receive(fParser.Room(), fParser.BytesNeeded());
	if (received < 1)
		return kEnd;

	switch (fParser.Advance(static_cast<uint32>(received))) {
		case TransactionParser::kNeedsMore:
			return kIncomplete;
		case TransactionParser::kComplete:
			return kComplete;
		case TransactionParser::kFailed:
			break;
	}
	socket.ShutDown();
	return kEnd;
}
