/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "WaitFor.h"

#include <chrono>
#include <thread>


static void
nap()
{
	std::this_thread::sleep_for(std::chrono::milliseconds(1));
}


static void (*sPass)() = nap;


bool
WaitFor(const std::function<bool()>& condition, int seconds)
{
	const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
	while (!condition()) {
		if (std::chrono::steady_clock::now() >= deadline)
			return condition();
		sPass();
	}
	return true;
}


void
PassTimeWith(void (*pass)())
{
	sPass = pass;
}
