/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "InterposedCalls.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <netdb.h>
#include <sys/socket.h>
#include <sys/time.h>


static const int kNothing = -1;
static const bigtime_t kLongSnooze = 100000;

static std::atomic<int> sSocketError(kNothing);
static std::atomic<int> sConnectError(kNothing);
static std::atomic<int> sSendSize(kNothing);
static std::atomic<bool> sBreaksSend(false);
static std::atomic<status_t> sSpawnError(B_OK);
static std::atomic<int> sTimeoutDivisor(1);
static std::atomic<size_t> sReceived(0);
static std::atomic<bigtime_t> sClockStep(0);
static std::atomic<bigtime_t> sClockOffset(0);

// What the lock guards. Never destroyed: a transfer's thread may outlive the tests.
struct Records {
	std::mutex lock;
	std::condition_variable released;
	bool holdsLookups = false;
	std::string heldHost;
	bool holdsSnoozes = false;
	std::vector<InterposedCalls::Timeout> timeouts;
	std::vector<InterposedCalls::Lookup> lookups;
	std::vector<InterposedCalls::Thread> threads;
};

static Records& sRecords = *new Records;

// The linker's names for a function and for what stands in its place; those of the kits are C++
// ones.
extern "C"
{
	int __real_socket(int family, int type, int protocol);
	int __real_connect(int socket, const struct sockaddr* address, socklen_t length);
	ssize_t __real_send(int socket, const void* data, size_t size, int flags);
	ssize_t __real_recv(int socket, void* buffer, size_t size, int flags);
	int __real_setsockopt(int socket, int level, int option, const void* value, socklen_t length);
	int __real_getaddrinfo(const char* host, const char* port, const struct addrinfo* hints,
		struct addrinfo** _result);
	bigtime_t __real__Z11system_timev();
	thread_id __real__Z12spawn_threadPFiPvEPKciS_(thread_func function, const char* name,
		int32 priority, void* data);
	status_t __real__Z6snoozel(bigtime_t microseconds);

	int __wrap_socket(int family, int type, int protocol);
	int __wrap_connect(int socket, const struct sockaddr* address, socklen_t length);
	ssize_t __wrap_send(int socket, const void* data, size_t size, int flags);
	ssize_t __wrap_recv(int socket, void* buffer, size_t size, int flags);
	int __wrap_setsockopt(int socket, int level, int option, const void* value, socklen_t length);
	int __wrap_getaddrinfo(const char* host, const char* port, const struct addrinfo* hints,
		struct addrinfo** _result);
	bigtime_t __wrap__Z11system_timev();
	thread_id __wrap__Z12spawn_threadPFiPvEPKciS_(thread_func function, const char* name,
		int32 priority, void* data);
	status_t __wrap__Z6snoozel(bigtime_t microseconds);
}


/*!	Whether a failure was asked for, which is then used up. */
static bool
take(std::atomic<int>& wanted, int* _value)
{
	*_value = wanted.exchange(kNothing);
	return *_value != kNothing;
}


int
__wrap_socket(int family, int type, int protocol)
{
	int error;
	if (take(sSocketError, &error)) {
		errno = error;
		return -1;
	}
	return __real_socket(family, type, protocol);
}


int
__wrap_connect(int socket, const struct sockaddr* address, socklen_t length)
{
	int error;
	if (take(sConnectError, &error)) {
		errno = error;
		return -1;
	}
	return __real_connect(socket, address, length);
}


ssize_t
__wrap_send(int socket, const void* data, size_t size, int flags)
{
	int cut;
	if (take(sSendSize, &cut))
		size = std::min(size, size_t(cut));
	if (sBreaksSend.exchange(false))
		shutdown(socket, SHUT_WR);
	return __real_send(socket, data, size, flags);
}


ssize_t
__wrap_recv(int socket, void* buffer, size_t size, int flags)
{
	const ssize_t received = __real_recv(socket, buffer, size, flags);
	if (received > 0)
		sReceived += size_t(received);
	return received;
}


int
__wrap_setsockopt(int socket, int level, int option, const void* value, socklen_t length)
{
	if (level != SOL_SOCKET || (option != SO_RCVTIMEO && option != SO_SNDTIMEO))
		return __real_setsockopt(socket, level, option, value, length);

	struct timeval timeout;
	memcpy(&timeout, value, sizeof(timeout));
	{
		const std::lock_guard<std::mutex> lock(sRecords.lock);
		sRecords.timeouts.push_back({option, timeout.tv_sec});
	}
	const long microseconds = (timeout.tv_sec * 1000000 + timeout.tv_usec) / sTimeoutDivisor;
	timeout.tv_sec = microseconds / 1000000;
	timeout.tv_usec = microseconds % 1000000;
	return __real_setsockopt(socket, level, option, &timeout, length);
}


int
__wrap_getaddrinfo(const char* host, const char* port, const struct addrinfo* hints,
	struct addrinfo** _result)
{
	{
		std::unique_lock<std::mutex> lock(sRecords.lock);
		sRecords.lookups.push_back({host, port, hints->ai_family, hints->ai_socktype});
		sRecords.released.wait(lock, [host] {
			return !sRecords.holdsLookups
				|| (!sRecords.heldHost.empty() && sRecords.heldHost != host);
		});
	}
	struct addrinfo numericOnly = *hints;
	numericOnly.ai_flags |= AI_NUMERICHOST;
	return __real_getaddrinfo(host, port, &numericOnly, _result);
}


bigtime_t
__wrap__Z11system_timev()
{
	sClockOffset += sClockStep;
	return __real__Z11system_timev() + sClockOffset;
}


thread_id
__wrap__Z12spawn_threadPFiPvEPKciS_(thread_func function, const char* name, int32 priority,
	void* data)
{
	{
		const std::lock_guard<std::mutex> lock(sRecords.lock);
		sRecords.threads.push_back({name, priority});
	}
	const status_t error = sSpawnError.exchange(B_OK);
	if (error != B_OK)
		return error;
	return __real__Z12spawn_threadPFiPvEPKciS_(function, name, priority, data);
}


status_t
__wrap__Z6snoozel(bigtime_t microseconds)
{
	if (microseconds >= kLongSnooze) {
		std::unique_lock<std::mutex> lock(sRecords.lock);
		if (sRecords.holdsSnoozes) {
			sRecords.released.wait(lock, [] {
				return !sRecords.holdsSnoozes;
			});
			return B_OK;
		}
	}
	return __real__Z6snoozel(microseconds);
}


// #pragma mark -


InterposedCalls::InterposedCalls()
{
	const std::lock_guard<std::mutex> lock(sRecords.lock);
	sRecords.timeouts.clear();
	sRecords.lookups.clear();
	sRecords.threads.clear();
	sReceived = 0;
}


InterposedCalls::~InterposedCalls()
{
	ReleaseLookups();
	ReleaseSnoozes();
	sTimeoutDivisor = 1;
	sClockStep = 0;
	sSocketError = kNothing;
	sConnectError = kNothing;
	sSendSize = kNothing;
	sSpawnError = B_OK;
	sBreaksSend = false;
}


void
InterposedCalls::FailNextSocket(int error)
{
	sSocketError = error;
}


void
InterposedCalls::FailNextConnect(int error)
{
	sConnectError = error;
}


void
InterposedCalls::CutNextSend(int size)
{
	sSendSize = size;
}


void
InterposedCalls::BreakNextSend()
{
	sBreaksSend = true;
}


void
InterposedCalls::FailNextSpawn(status_t error)
{
	sSpawnError = error;
}


void
InterposedCalls::ShortenTimeouts(int divisor)
{
	sTimeoutDivisor = divisor;
}


void
InterposedCalls::StepClock(int seconds)
{
	sClockStep = seconds * 1000000LL;
}


std::vector<InterposedCalls::Timeout>
InterposedCalls::Timeouts() const
{
	const std::lock_guard<std::mutex> lock(sRecords.lock);
	return sRecords.timeouts;
}


size_t
InterposedCalls::CountReceived() const
{
	return sReceived;
}


std::vector<InterposedCalls::Thread>
InterposedCalls::Threads() const
{
	const std::lock_guard<std::mutex> lock(sRecords.lock);
	return sRecords.threads;
}


std::vector<InterposedCalls::Lookup>
InterposedCalls::Lookups() const
{
	const std::lock_guard<std::mutex> lock(sRecords.lock);
	return sRecords.lookups;
}


void
InterposedCalls::HoldLookups(const std::string& host)
{
	const std::lock_guard<std::mutex> lock(sRecords.lock);
	sRecords.holdsLookups = true;
	sRecords.heldHost = host;
}


void
InterposedCalls::ReleaseLookups()
{
	const std::lock_guard<std::mutex> lock(sRecords.lock);
	sRecords.holdsLookups = false;
	sRecords.released.notify_all();
}


void
InterposedCalls::HoldSnoozes()
{
	const std::lock_guard<std::mutex> lock(sRecords.lock);
	sRecords.holdsSnoozes = true;
}


void
InterposedCalls::ReleaseSnoozes()
{
	const std::lock_guard<std::mutex> lock(sRecords.lock);
	sRecords.holdsSnoozes = false;
	sRecords.released.notify_all();
}
