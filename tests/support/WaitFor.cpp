/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "WaitFor.h"

#include <chrono>
#include <thread>
#include <utility>


static void
nap()
{
	std::this_thread::sleep_for(std::chrono::milliseconds(1));
}


static TimePasser sPass = nap;


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


TimePasser
PassTimeWith(TimePasser pass)
{
	return std::exchange(sPass, pass);
}
