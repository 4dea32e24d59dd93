/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SOCKET_H
#define SOCKET_H


#include <memory>

#include <OS.h>
#include <SupportDefs.h>


/*!	A share in an open socket. The socket is closed when the last share goes, so that nobody reads
	from or writes to a number that was given to another connection meanwhile. One share belongs to
	one thread or is guarded by a lock; different shares of one socket may be used by different
	threads.
	A write to a connection that the other side has closed is an error and never a signal.
*/
class Socket {
public:
	// What becomes of a call that a signal interrupts.
	enum SignalPolicy { kFailAtSignals, kIgnoreSignals };

	Socket() = default;
	Socket(int number, SignalPolicy policy);

	bool IsSet() const { return fState != NULL; }
	bool IsSameAs(const Socket& other) const { return fState == other.fState; }
	// -1 when none is set.
	int Number() const;

	void SetTimeouts(int receiveSeconds, int sendSeconds) const;
	void ShutDown() const;

	ssize_t Send(const void* data, size_t length) const;
	bool SendAll(const void* data, size_t length) const;
	ssize_t SendAtOnce(const void* data, size_t length) const;
	ssize_t Receive(void* buffer, size_t length) const;
	ssize_t ReceiveAll(void* buffer, size_t length, bigtime_t timeout = B_INFINITE_TIMEOUT) const;

private:
	class State;

	bool _MaySend() const;
	ssize_t _Send(const void* data, size_t length, int flags) const;
	ssize_t _SendWhole(const void* data, size_t length, int flags) const;

	std::shared_ptr<State> fState;
};


#endif // SOCKET_H
