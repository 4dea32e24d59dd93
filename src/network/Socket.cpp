/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Socket.h"

#include <atomic>
#include <cerrno>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>


class Socket::State {
public:
	State(int descriptor, SignalPolicy policy);
	State(const State&) = delete;
	~State();

	State& operator=(const State&) = delete;

	const int number;
	const bool ignoresSignals;
	std::atomic<bool> isShutDown;
};


Socket::State::State(int descriptor, SignalPolicy policy)
	: number(descriptor),
	  ignoresSignals(policy == kIgnoreSignals),
	  isShutDown(false)
{
}


Socket::State::~State()
{
	close(number);
}


static void
set_timeout(int socket, int option, int seconds)
{
	if (seconds <= 0)
		return;

	struct timeval timeout = {};
	timeout.tv_sec = seconds;
	setsockopt(socket, SOL_SOCKET, option, &timeout, sizeof(timeout));
}


// #pragma mark -


/*!	\param number An open socket, which now belongs to its shares. */
Socket::Socket(int number, SignalPolicy policy)
	: fState(std::make_shared<State>(number, policy))
{
}


int
Socket::Number() const
{
	return fState != NULL ? fState->number : -1;
}


/*!	Limits each later call; 0 leaves such calls without a limit. */
void
Socket::SetTimeouts(int receiveSeconds, int sendSeconds) const
{
	set_timeout(Number(), SO_RCVTIMEO, receiveSeconds);
	set_timeout(Number(), SO_SNDTIMEO, sendSeconds);
}


/*!	Ends the connection in both directions: every thread that waits for it wakes up, and nothing is
	sent any more. The number stays taken. Does nothing when no socket is set.
*/
void
Socket::ShutDown() const
{
	if (fState == NULL)
		return;

	fState->isShutDown = true;
	shutdown(fState->number, SHUT_RDWR);
}


/*!	One call. Less than \a length may have been sent; what is returned is below 1 when it failed or
	ran into the time-out.
*/
ssize_t
Socket::Send(const void* data, size_t length) const
{
	return _MaySend() ? _Send(data, length, 0) : -1;
}


/*!	Sends all bytes, in as many calls as it takes. A call that fails or runs into the time-out shuts
	the connection down: what was begun cannot be completed, and nothing may follow it.
*/
bool
Socket::SendAll(const void* data, size_t length) const
{
	return _SendWhole(data, length, 0) >= 0;
}


/*!	The same without waiting for the other side: no more bytes than there is room for.
	\return How many that are, or -1.
*/
ssize_t
Socket::SendAtOnce(const void* data, size_t length) const
{
	return _SendWhole(data, length, MSG_DONTWAIT);
}


/*!	One call.
	\return 0 when the other side has closed, below 0 on an error or a time-out.
*/
ssize_t
Socket::Receive(void* buffer, size_t length) const
{
	if (fState == NULL)
		return -1;

	ssize_t received;
	do {
		received = recv(fState->number, buffer, length, 0);
	} while (received < 0 && errno == EINTR && fState->ignoresSignals);
	return received;
}


/*!	Receives until the buffer is full or the other side closes, in as many calls as it takes.
	\param timeout For all calls together, in microseconds; looked at after each of them.
	\return The bytes received; -1 on an error or a time-out.
*/
ssize_t
Socket::ReceiveAll(void* buffer, size_t length, bigtime_t timeout) const
{
	const bool isLimited = timeout != B_INFINITE_TIMEOUT;
	const bigtime_t deadline = isLimited ? system_time() + timeout : B_INFINITE_TIMEOUT;
	size_t total = 0;
	while (total < length) {
		const ssize_t received = Receive(static_cast<char*>(buffer) + total, length - total);
		if (received < 0)
			return -1;
		if (received == 0)
			break;

		total += static_cast<size_t>(received);
		if (total < length && isLimited && system_time() >= deadline)
			return -1;
	}
	return static_cast<ssize_t>(total);
}


bool
Socket::_MaySend() const
{
	return fState != NULL && !fState->isShutDown;
}


ssize_t
Socket::_Send(const void* data, size_t length, int flags) const
{
	ssize_t sent;
	do {
		sent = send(fState->number, data, length, flags | MSG_NOSIGNAL);
	} while (sent < 0 && errno == EINTR && fState->ignoresSignals);
	return sent;
}


ssize_t
Socket::_SendWhole(const void* data, size_t length, int flags) const
{
	const char* bytes = static_cast<const char*>(data);
	size_t total = 0;
	while (total < length) {
		if (!_MaySend())
			return -1;

		const ssize_t sent = _Send(bytes + total, length - total, flags);
		if (sent < 0 && (flags & MSG_DONTWAIT) != 0 && errno == EAGAIN)
			break;
		if (sent < 1) {
			ShutDown();
			return -1;
		}
		total += static_cast<size_t>(sent);
	}
	return static_cast<ssize_t>(total);
}
