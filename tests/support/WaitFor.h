/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef WAIT_FOR_H
#define WAIT_FOR_H


#include <functional>

#include <gtest/gtest.h>


/*!	Waits until the condition holds; false when it does not within the given number of seconds.
	In suites with windows the messages and the events of the application are served meanwhile.
*/
bool WaitFor(const std::function<bool()>& condition, int seconds = 10);

// A failure when the condition does not hold within ten seconds.
#define EXPECT_SOON(...) \
	EXPECT_TRUE(WaitFor([&] { \
		return (__VA_ARGS__); \
	})) << #__VA_ARGS__
#define ASSERT_SOON(...) \
	ASSERT_TRUE(WaitFor([&] { \
		return (__VA_ARGS__); \
	})) << #__VA_ARGS__

// What is done between two looks at the condition, in place of a nap of a millisecond. Returns what
// was done until then.
using TimePasser = void (*)();
TimePasser PassTimeWith(TimePasser pass);


#endif // WAIT_FOR_H
