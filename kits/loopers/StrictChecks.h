/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef STRICT_CHECKS_H
#define STRICT_CHECKS_H


class BLooper;


// What ends in the debugger on Haiku, or reads what is gone, and would pass unnoticed here: in
// builds with PALIMBRA_STRICT it aborts and says which method was called. In others the checks are
// not there.
#ifdef PALIMBRA_STRICT

// For the method in which it stands: whoever calls it has the looper locked. NULL is nobody's.
#	define CHECK_LOCKED(looper) check_locked(looper, __PRETTY_FUNCTION__)
// The looper, to which a pointer was given, is there.
#	define CHECK_EXISTS(looper) check_exists(looper, __PRETTY_FUNCTION__)
// It is called on the main thread.
#	define CHECK_MAIN_THREAD() check_main_thread(__PRETTY_FUNCTION__)

void check_locked(const BLooper* looper, const char* method);
void check_exists(const BLooper* looper, const char* method);
void check_main_thread(const char* method);

#else

#	define CHECK_LOCKED(looper) static_cast<void>(0)
#	define CHECK_EXISTS(looper) static_cast<void>(0)
#	define CHECK_MAIN_THREAD() static_cast<void>(0)

#endif


#endif // STRICT_CHECKS_H
