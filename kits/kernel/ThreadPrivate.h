/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef THREAD_PRIVATE_H
#define THREAD_PRIVATE_H


#include <OS.h>


/*!	How wait_for_thread() waits on the main thread: \a hook returns when \a done says true for \a
	cookie, and serves others meanwhile. \a wake is called, on any thread, when \a done may have
	become true. Without a hook it blocks.
*/
void set_main_wait_hook(void (*hook)(bool (*done)(void*), void* cookie), void (*wake)());

/*!	\a notify is called, on any thread, whenever somebody begins to wait for a thread: see
	is_awaited().
*/
void set_await_notifier(void (*notify)());

/*!	Whether the calling thread is the process' first one. */
bool is_main_thread();

/*!	Whether somebody waits in wait_for_thread() for the calling thread. Such a thread must not wait
	for the one that waits for it.
*/
bool is_awaited();

/*!	Whether any thread but the calling one has been started and has not ended. */
bool have_others_started();


#endif // THREAD_PRIVATE_H
