/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "WaitFor.h"

#include <chrono>
#include <thread>


/*	For suites without windows: looks at the condition every millisecond. */
bool
WaitFor(const std::function<bool()>& condition, int seconds)
{
	auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
	while (!condition()) {
		if (std::chrono::steady_clock::now() >= deadline)
			return condition();
		std::this_thread::sleep_for(std::chrono::milliseconds(1));
	}
	return true;
}
