/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef EXPECT_SOON_H
#define EXPECT_SOON_H


#include <gtest/gtest.h>

#include "WaitFor.h"


#endif // EXPECT_SOON_H
