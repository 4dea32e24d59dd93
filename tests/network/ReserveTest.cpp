/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Reserve.h"

#include <gtest/gtest.h>

#include "Interposed.h"


TEST(ReserveTest, MemoryIsSpare_WhenABlockOfManyMegabytesIs)
{
	size_t asked = 0;
	bool isRefused = false;
	Interposed::allocate = [&](size_t size) {
		asked = size;
		return isRefused ? NULL : Interposed::RealAllocate(size);
	};
	EXPECT_TRUE(HasSpareMemory());
	EXPECT_EQ(32u * 1024 * 1024, asked);
	isRefused = true;
	EXPECT_FALSE(HasSpareMemory());
	Interposed::Clear();
	EXPECT_TRUE(HasSpareMemory());
}
