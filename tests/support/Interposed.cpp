/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Interposed.h"

#include <mutex>


// Taken by a thread that nobody waits for when it has come through, and when the calls are cleared:
// what a test has put in is not in use any more then, and a race detector sees that.
static std::mutex sLeaving;


/*!	Calls what a test has put in, or else what it stands for. */
template<typename Result, typename... Arguments>
static Result
call(const std::function<Result(Arguments...)>& interposed, Result (*real)(Arguments...),
	Arguments... arguments)
{
	return interposed ? interposed(arguments...) : real(arguments...);
}


/*!	The same, on a thread that nobody waits for. */
template<typename Result, typename... Arguments>
static Result
call_and_leave(const std::function<Result(Arguments...)>& interposed, Result (*real)(Arguments...),
	Arguments... arguments)
{
	if (!interposed)
		return real(arguments...);
	const Result result = interposed(arguments...);
	const std::lock_guard<std::mutex> lock(sLeaving);
	return result;
}


// The names that the linker option --wrap gives to what stands in for a call.
extern "C"
{
	thread_id __wrap__Z12spawn_threadPFiPvEPKciS_(thread_func function, const char* name,
		int32 priority, void* data)
	{
		return call(Interposed::spawn, Interposed::RealSpawn, function, name, priority, data);
	}


	status_t __wrap__Z13resume_threadi(thread_id thread)
	{
		return call(Interposed::resume, __real__Z13resume_threadi, thread);
	}


	status_t __wrap__Z15wait_for_threadiPi(thread_id thread, status_t* _result)
	{
		if (Interposed::wait)
			Interposed::wait(thread);
		return __real__Z15wait_for_threadiPi(thread, _result);
	}


	status_t __wrap__Z6snoozel(bigtime_t microseconds)
	{
		return call(Interposed::snooze, Interposed::RealSnooze, microseconds);
	}


	bigtime_t __wrap__Z11system_timev()
	{
		return call(Interposed::time, Interposed::RealTime);
	}


	int __wrap_getaddrinfo(const char* name, const char* port, const addrinfo* hints,
		addrinfo** _result)
	{
		return call_and_leave(Interposed::resolve, Interposed::RealResolve, name, port, hints,
			_result);
	}


	int __wrap_socket(int family, int type, int protocol)
	{
		return call(Interposed::socket, Interposed::RealSocket, family, type, protocol);
	}


	int __wrap_setsockopt(int descriptor, int level, int option, const void* value, socklen_t size)
	{
		return call(Interposed::setOption, Interposed::RealSetOption, descriptor, level, option,
			value, size);
	}


	int __wrap_connect(int descriptor, const sockaddr* address, socklen_t size)
	{
		return call(Interposed::connect, Interposed::RealConnect, descriptor, address, size);
	}


	ssize_t __wrap_send(int descriptor, const void* data, size_t size, int flags)
	{
		return call_and_leave(Interposed::send, Interposed::RealSend, descriptor, data, size,
			flags);
	}


	ssize_t __wrap_recv(int descriptor, void* buffer, size_t size, int flags)
	{
		return call(Interposed::receive, Interposed::RealReceive, descriptor, buffer, size, flags);
	}


	int __wrap_select(int count, fd_set* readable, fd_set* writable, fd_set* broken,
		timeval* timeout)
	{
		if (Interposed::select)
			return Interposed::select(count, readable, timeout);
		return __real_select(count, readable, writable, broken, timeout);
	}


	void* __wrap_malloc(size_t size)
	{
		return call(Interposed::allocate, Interposed::RealAllocate, size);
	}


	void* __wrap_realloc(void* block, size_t size)
	{
		return call(Interposed::reallocate, Interposed::RealReallocate, block, size);
	}
}


// #pragma mark -


int
Interposed::RealSelect(int count, fd_set* readable, timeval* timeout)
{
	return __real_select(count, readable, nullptr, nullptr, timeout);
}


void
Interposed::Clear()
{
	const std::lock_guard<std::mutex> lock(sLeaving);
	spawn = nullptr;
	resume = nullptr;
	wait = nullptr;
	snooze = nullptr;
	time = nullptr;
	resolve = nullptr;
	socket = nullptr;
	setOption = nullptr;
	connect = nullptr;
	send = nullptr;
	receive = nullptr;
	select = nullptr;
	allocate = nullptr;
	reallocate = nullptr;
}
