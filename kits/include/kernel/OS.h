/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef OS_H
#define OS_H


#include <SupportDefs.h>


typedef int32 thread_id;
typedef int32 team_id;
typedef int32 port_id;
typedef status_t (*thread_func)(void* data);

#define B_OS_NAME_LENGTH 32
#define B_INFINITE_TIMEOUT (9223372036854775807LL)

enum { B_LOW_PRIORITY = 5, B_NORMAL_PRIORITY = 10, B_URGENT_DISPLAY_PRIORITY = 20 };


thread_id spawn_thread(thread_func function, const char* name, int32 priority, void* data);
status_t resume_thread(thread_id thread);
status_t wait_for_thread(thread_id thread, status_t* _returnValue);
thread_id find_thread(const char* name);

status_t snooze(bigtime_t microseconds);
bigtime_t system_time();


#endif // OS_H
