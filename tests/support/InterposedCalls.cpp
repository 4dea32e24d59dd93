/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "InterposedCalls.h"

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <cstring>
#include <memory>
#include <mutex>
#include <netdb.h>
#include <sys/socket.h>
#include <sys/time.h>

#include "Interposed.h"


using Calls = InterposedCalls;

static const bigtime_t kLongSnooze = 100000;

static std::atomic<bigtime_t> sClockOffset(0);

// What the lock guards. Never destroyed: a transfer's thread may outlive the tests.
struct Records {
	std::mutex lock;
	std::condition_variable released;
	bool holdsLookups = false;
	std::string heldHost;
	bool holdsSnoozes = false;
	std::string heldThread;
	InterposedCalls::Timeouts timeouts;
	std::vector<InterposedCalls::Lookup> lookups;
	std::vector<InterposedCalls::Thread> threads;
};

static Records& sRecords = *new Records;


/*!	Whether a failure was asked for, which is then used up. */
static bool
take(std::atomic<int>& wanted, int* _value)
{
	*_value = wanted.exchange(Calls::kNothing);
	return *_value != Calls::kNothing;
}


/*!	The same for the error of a call. */
static bool
fails(std::atomic<int>& wanted)
{
	int error;
	if (!take(wanted, &error))
		return false;
	errno = error;
	return true;
}


static int
open_socket(int family, int type, int protocol)
{
	return fails(Calls::sSocketError) ? -1 : Interposed::RealSocket(family, type, protocol);
}


static int
connect_socket(int socket, const sockaddr* address, socklen_t length)
{
	return fails(Calls::sConnectError) ? -1 : Interposed::RealConnect(socket, address, length);
}


static ssize_t
send_bytes(int socket, const void* data, size_t size, int flags)
{
	int cut;
	if (take(Calls::sSendSize, &cut))
		size = std::min(size, static_cast<size_t>(cut));
	if (Calls::sBreaksSend.exchange(false))
		shutdown(socket, SHUT_WR);
	return Interposed::RealSend(socket, data, size, flags);
}


static ssize_t
receive_bytes(int socket, void* buffer, size_t size, int flags)
{
	const ssize_t received = Interposed::RealReceive(socket, buffer, size, flags);
	if (received > 0)
		Calls::sReceived += static_cast<size_t>(received);
	return received;
}


static int
set_option(int socket, int level, int option, const void* value, socklen_t length)
{
	if (level != SOL_SOCKET || (option != SO_RCVTIMEO && option != SO_SNDTIMEO))
		return Interposed::RealSetOption(socket, level, option, value, length);

	timeval timeout;
	memcpy(&timeout, value, sizeof(timeout));
	{
		const std::lock_guard<std::mutex> lock(sRecords.lock);
		sRecords.timeouts.push_back({option, timeout.tv_sec});
	}
	const long microseconds = (timeout.tv_sec * 1000000 + timeout.tv_usec) / Calls::sTimeoutDivisor;
	timeout.tv_sec = microseconds / 1000000;
	timeout.tv_usec = microseconds % 1000000;
	return Interposed::RealSetOption(socket, level, option, &timeout, length);
}


static int
resolve(const char* host, const char* port, const addrinfo* hints, addrinfo** _result)
{
	{
		std::unique_lock<std::mutex> lock(sRecords.lock);
		sRecords.lookups.push_back({host, port, hints->ai_family, hints->ai_socktype});
		sRecords.released.wait(lock, [host] {
			return !sRecords.holdsLookups
				|| (!sRecords.heldHost.empty() && sRecords.heldHost != host);
		});
	}
	addrinfo numericOnly = *hints;
	numericOnly.ai_flags |= AI_NUMERICHOST;
	return Interposed::RealResolve(host, port, &numericOnly, _result);
}


/*!	A thread that does nothing until it is released. */
struct HeldThread {
	std::string name;
	thread_func function;
	void* data;
};


static status_t
run_released(void* data)
{
	const std::unique_ptr<HeldThread> thread(static_cast<HeldThread*>(data));
	{
		std::unique_lock<std::mutex> lock(sRecords.lock);
		sRecords.released.wait(lock, [&thread] {
			return sRecords.heldThread != thread->name;
		});
	}
	return thread->function(thread->data);
}


static thread_id
spawn(thread_func function, const char* name, int32 priority, void* data)
{
	bool isHeld;
	{
		const std::lock_guard<std::mutex> lock(sRecords.lock);
		sRecords.threads.push_back({name, priority});
		isHeld = sRecords.heldThread == name;
	}
	const status_t error = Calls::sSpawnError.exchange(B_OK);
	if (error != B_OK)
		return error;
	if (!isHeld)
		return Interposed::RealSpawn(function, name, priority, data);
	return Interposed::RealSpawn(run_released, name, priority,
		new HeldThread{name, function, data});
}


static status_t
snooze_or_wait(bigtime_t microseconds)
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
	return Interposed::RealSnooze(microseconds);
}


static bigtime_t
stepped_time()
{
	sClockOffset += Calls::sClockStep;
	return Interposed::RealTime() + sClockOffset;
}


static bool
interpose()
{
	Interposed::socket = open_socket;
	Interposed::connect = connect_socket;
	Interposed::send = send_bytes;
	Interposed::receive = receive_bytes;
	Interposed::setOption = set_option;
	Interposed::resolve = resolve;
	Interposed::spawn = spawn;
	Interposed::snooze = snooze_or_wait;
	Interposed::time = stepped_time;
	return true;
}


// Before there is any thread, and for good.
[[maybe_unused]] static const bool kIsInterposed = interpose();


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
	ReleaseThreads();
	sTimeoutDivisor = 1;
	sClockStep = 0;
	sSocketError = kNothing;
	sConnectError = kNothing;
	sSendSize = kNothing;
	sSpawnError = B_OK;
	sBreaksSend = false;
}


InterposedCalls::Timeouts
InterposedCalls::SetTimeouts() const
{
	const std::lock_guard<std::mutex> lock(sRecords.lock);
	return sRecords.timeouts;
}


std::vector<InterposedCalls::Thread>
InterposedCalls::Threads() const
{
	const std::lock_guard<std::mutex> lock(sRecords.lock);
	return sRecords.threads;
}


size_t
InterposedCalls::CountThreads(const std::string& name) const
{
	const std::vector<Thread> threads = Threads();
	return static_cast<size_t>(
		std::count_if(threads.begin(), threads.end(), [&name](const Thread& thread) {
			return thread.name == name;
		}));
}


void
InterposedCalls::HoldThreads(const std::string& name)
{
	const std::lock_guard<std::mutex> lock(sRecords.lock);
	sRecords.heldThread = name;
}


void
InterposedCalls::ReleaseThreads()
{
	const std::lock_guard<std::mutex> lock(sRecords.lock);
	sRecords.heldThread.clear();
	sRecords.released.notify_all();
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
