/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "WaitFor.h"

#include <ApplicationPrivate.h>
#include <OS.h>


// In microseconds. A condition may also become true by what another thread does, without an event.
static const bigtime_t kLookAgain = 3000;


/*	For suites with windows: serves the application meanwhile. */
bool
WaitFor(const std::function<bool()>& condition, int seconds)
{
	const bigtime_t deadline = system_time() + bigtime_t(seconds) * 1000000;
	while (!condition()) {
		if (system_time() >= deadline)
			return condition();
		ApplicationPrivate::ProcessEvents(kLookAgain);
	}
	return true;
}
