/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <StrictChecks.h>

#ifdef PALIMBRA_STRICT

#	include <cstdio>
#	include <cstdlib>

#	include <LooperRegistry.h>
#	include <ThreadPrivate.h>


[[noreturn]] static void
end_in_the_debugger(const char* method, const char* what)
{
	fprintf(stderr, "%s: %s\n", method, what);
	abort();
}


void
check_locked(const BLooper* looper, const char* method)
{
	if (looper == NULL)
		return;

	LooperRecordRef record = LooperRegistry::Default()->Find(looper);
	if (record == NULL || !record->IsLocked())
		end_in_the_debugger(method, "the looper must be locked");
}


void
check_exists(const BLooper* looper, const char* method)
{
	if (LooperRegistry::Default()->Find(looper) == NULL)
		end_in_the_debugger(method, "the looper is gone");
}


void
check_main_thread(const char* method)
{
	if (!is_main_thread())
		end_in_the_debugger(method, "windows belong to the main thread");
}

#endif // PALIMBRA_STRICT
