/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Interposed.h"

#include <mutex>


std::function<thread_id(thread_func, const char*, int32, void*)> Interposed::spawn;
std::function<status_t(thread_id)> Interposed::resume;
std::function<void(thread_id)> Interposed::wait;
std::function<int(const char*, const char*, const addrinfo*, addrinfo**)> Interposed::resolve;
std::function<int(int, int, int)> Interposed::socket;
std::function<int(int, int, int, const void*, socklen_t)> Interposed::setOption;
std::function<int(int, const sockaddr*, socklen_t)> Interposed::connect;
std::function<ssize_t(int, const void*, size_t, int)> Interposed::send;
std::function<ssize_t(int, void*, size_t, int)> Interposed::receive;
std::function<int(int, fd_set*, timeval*)> Interposed::select;
std::function<void*(size_t)> Interposed::allocate;
std::function<void*(void*, size_t)> Interposed::reallocate;


// Taken by a thread that nobody waits for when it has come through, and when the calls are cleared:
// what a test has put in is not in use any more then, and a race detector sees that.
static std::mutex sLeaving;


static void
leave()
{
	const std::lock_guard<std::mutex> lock(sLeaving);
}


// The names that the linker option --wrap gives to the two sides of a call.
extern "C"
{
	thread_id __real__Z12spawn_threadPFiPvEPKciS_(thread_func function, const char* name,
		int32 priority, void* data);
	status_t __real__Z13resume_threadi(thread_id thread);
	status_t __real__Z15wait_for_threadiPi(thread_id thread, status_t* _result);
	int __real_getaddrinfo(const char* name, const char* port, const addrinfo* hints,
		addrinfo** _result);
	int __real_socket(int family, int type, int protocol);
	int __real_setsockopt(int descriptor, int level, int option, const void* value, socklen_t size);
	int __real_connect(int descriptor, const sockaddr* address, socklen_t size);
	ssize_t __real_send(int descriptor, const void* data, size_t size, int flags);
	ssize_t __real_recv(int descriptor, void* buffer, size_t size, int flags);
	int __real_select(int count, fd_set* readable, fd_set* writable, fd_set* broken,
		timeval* timeout);
	void* __real_malloc(size_t size);
	void* __real_realloc(void* block, size_t size);


	thread_id __wrap__Z12spawn_threadPFiPvEPKciS_(thread_func function, const char* name,
		int32 priority, void* data)
	{
		if (Interposed::spawn)
			return Interposed::spawn(function, name, priority, data);
		return __real__Z12spawn_threadPFiPvEPKciS_(function, name, priority, data);
	}


	status_t __wrap__Z13resume_threadi(thread_id thread)
	{
		if (Interposed::resume)
			return Interposed::resume(thread);
		return __real__Z13resume_threadi(thread);
	}


	status_t __wrap__Z15wait_for_threadiPi(thread_id thread, status_t* _result)
	{
		if (Interposed::wait)
			Interposed::wait(thread);
		return __real__Z15wait_for_threadiPi(thread, _result);
	}


	int __wrap_getaddrinfo(const char* name, const char* port, const addrinfo* hints,
		addrinfo** _result)
	{
		if (!Interposed::resolve)
			return __real_getaddrinfo(name, port, hints, _result);
		const int result = Interposed::resolve(name, port, hints, _result);
		leave();
		return result;
	}


	int __wrap_socket(int family, int type, int protocol)
	{
		if (Interposed::socket)
			return Interposed::socket(family, type, protocol);
		return __real_socket(family, type, protocol);
	}


	int __wrap_setsockopt(int descriptor, int level, int option, const void* value, socklen_t size)
	{
		if (Interposed::setOption)
			return Interposed::setOption(descriptor, level, option, value, size);
		return __real_setsockopt(descriptor, level, option, value, size);
	}


	int __wrap_connect(int descriptor, const sockaddr* address, socklen_t size)
	{
		if (Interposed::connect)
			return Interposed::connect(descriptor, address, size);
		return __real_connect(descriptor, address, size);
	}


	ssize_t __wrap_send(int descriptor, const void* data, size_t size, int flags)
	{
		if (!Interposed::send)
			return __real_send(descriptor, data, size, flags);
		const ssize_t result = Interposed::send(descriptor, data, size, flags);
		leave();
		return result;
	}


	ssize_t __wrap_recv(int descriptor, void* buffer, size_t size, int flags)
	{
		if (Interposed::receive)
			return Interposed::receive(descriptor, buffer, size, flags);
		return __real_recv(descriptor, buffer, size, flags);
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
		return Interposed::allocate ? Interposed::allocate(size) : __real_malloc(size);
	}


	void* __wrap_realloc(void* block, size_t size)
	{
		if (Interposed::reallocate)
			return Interposed::reallocate(block, size);
		return __real_realloc(block, size);
	}
}


// #pragma mark -


thread_id
Interposed::RealSpawn(thread_func function, const char* name, int32 priority, void* data)
{
	return __real__Z12spawn_threadPFiPvEPKciS_(function, name, priority, data);
}


int
Interposed::RealResolve(const char* name, const char* port, const addrinfo* hints,
	addrinfo** _result)
{
	return __real_getaddrinfo(name, port, hints, _result);
}


int
Interposed::RealSocket(int family, int type, int protocol)
{
	return __real_socket(family, type, protocol);
}


int
Interposed::RealSetOption(int descriptor, int level, int option, const void* value, socklen_t size)
{
	return __real_setsockopt(descriptor, level, option, value, size);
}


int
Interposed::RealConnect(int descriptor, const sockaddr* address, socklen_t size)
{
	return __real_connect(descriptor, address, size);
}


ssize_t
Interposed::RealSend(int descriptor, const void* data, size_t size, int flags)
{
	return __real_send(descriptor, data, size, flags);
}


ssize_t
Interposed::RealReceive(int descriptor, void* buffer, size_t size, int flags)
{
	return __real_recv(descriptor, buffer, size, flags);
}


int
Interposed::RealSelect(int count, fd_set* readable, timeval* timeout)
{
	return __real_select(count, readable, nullptr, nullptr, timeout);
}


void*
Interposed::RealAllocate(size_t size)
{
	return __real_malloc(size);
}


void*
Interposed::RealReallocate(void* block, size_t size)
{
	return __real_realloc(block, size);
}


/*!	Lets every call through. */
void
Interposed::Clear()
{
	const std::lock_guard<std::mutex> lock(sLeaving);
	spawn = nullptr;
	resume = nullptr;
	wait = nullptr;
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
