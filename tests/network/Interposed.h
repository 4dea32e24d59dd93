/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef INTERPOSED_H
#define INTERPOSED_H


#include <functional>
#include <netdb.h>
#include <sys/select.h>
#include <sys/socket.h>

#include <OS.h>


/*!	Calls that this program's linker sends here first. An empty function lets the call through; what
	a test puts in may do so by calling the Real one. To be changed only while no client's thread
	runs.
*/
struct Interposed {
	static std::function<thread_id(thread_func, const char*, int32, void*)> spawn;
	static std::function<status_t(thread_id)> resume;
	// Called before the wait.
	static std::function<void(thread_id)> wait;
	static std::function<int(const char*, const char*, const addrinfo*, addrinfo**)> resolve;
	static std::function<int(int, int, int)> socket;
	static std::function<int(int, int, int, const void*, socklen_t)> setOption;
	static std::function<int(int, const sockaddr*, socklen_t)> connect;
	static std::function<ssize_t(int, const void*, size_t, int)> send;
	static std::function<ssize_t(int, void*, size_t, int)> receive;
	static std::function<int(int, fd_set*, timeval*)> select;
	static std::function<void*(size_t)> allocate;
	static std::function<void*(void*, size_t)> reallocate;

	static thread_id RealSpawn(thread_func function, const char* name, int32 priority, void* data);
	static int RealResolve(const char* name, const char* port, const addrinfo* hints,
		addrinfo** _result);
	static int RealSocket(int family, int type, int protocol);
	static int RealSetOption(int descriptor, int level, int option, const void* value,
		socklen_t size);
	static int RealConnect(int descriptor, const sockaddr* address, socklen_t size);
	static ssize_t RealSend(int descriptor, const void* data, size_t size, int flags);
	static ssize_t RealReceive(int descriptor, void* buffer, size_t size, int flags);
	static int RealSelect(int count, fd_set* readable, timeval* timeout);
	static void* RealAllocate(size_t size);
	static void* RealReallocate(void* block, size_t size);

	static void Clear();
};


#endif // INTERPOSED_H
