/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef EXPECT_SOON_H
#define EXPECT_SOON_H


#include <gtest/gtest.h>

#include "WaitFor.h"


// Something holds by now, or after having been waited for.
#define EXPECT_SOON(...) \
	EXPECT_TRUE(WaitFor([&] { \
		return (__VA_ARGS__); \
	}))
#define ASSERT_SOON(...) \
	ASSERT_TRUE(WaitFor([&] { \
		return (__VA_ARGS__); \
	}))


#endif // EXPECT_SOON_H
