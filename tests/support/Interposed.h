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


// The names that the linker option --wrap gives to the real side of a call; those of the kits are
// C++ ones.
extern "C"
{
	thread_id __real__Z12spawn_threadPFiPvEPKciS_(thread_func function, const char* name,
		int32 priority, void* data);
	status_t __real__Z13resume_threadi(thread_id thread);
	status_t __real__Z15wait_for_threadiPi(thread_id thread, status_t* _result);
	status_t __real__Z6snoozel(bigtime_t microseconds);
	bigtime_t __real__Z11system_timev();
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
}


/*!	Calls that the linker of a suite sends here first, which the library "interposed" has it do. An
	empty function lets the call through; what a test puts in may do so by calling the Real one. To
	be changed only while no thread runs that makes such calls.
*/
struct Interposed {
	static inline std::function<thread_id(thread_func, const char*, int32, void*)> spawn;
	static inline std::function<status_t(thread_id)> resume;
	// Called before the wait.
	static inline std::function<void(thread_id)> wait;
	static inline std::function<status_t(bigtime_t)> snooze;
	static inline std::function<bigtime_t()> time;
	static inline std::function<int(const char*, const char*, const addrinfo*, addrinfo**)> resolve;
	static inline std::function<int(int, int, int)> socket;
	static inline std::function<int(int, int, int, const void*, socklen_t)> setOption;
	static inline std::function<int(int, const sockaddr*, socklen_t)> connect;
	static inline std::function<ssize_t(int, const void*, size_t, int)> send;
	static inline std::function<ssize_t(int, void*, size_t, int)> receive;
	static inline std::function<int(int, fd_set*, timeval*)> select;
	static inline std::function<void*(size_t)> allocate;
	static inline std::function<void*(void*, size_t)> reallocate;

	static constexpr auto RealSpawn = __real__Z12spawn_threadPFiPvEPKciS_;
	static constexpr auto RealSnooze = __real__Z6snoozel;
	static constexpr auto RealTime = __real__Z11system_timev;
	static constexpr auto RealResolve = __real_getaddrinfo;
	static constexpr auto RealSocket = __real_socket;
	static constexpr auto RealSetOption = __real_setsockopt;
	static constexpr auto RealConnect = __real_connect;
	static constexpr auto RealSend = __real_send;
	static constexpr auto RealReceive = __real_recv;
	static constexpr auto RealAllocate = __real_malloc;
	static constexpr auto RealReallocate = __real_realloc;
	static int RealSelect(int count, fd_set* readable, timeval* timeout);

	// Lets every call through.
	static void Clear();
};


#endif // INTERPOSED_H
