/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// In place of what the C++ library knows of this machine's C library.
#pragma once
#pragma GCC system_header

// Threads are in the one library that every program has.
#define _GLIBCXX_GTHREAD_USE_WEAK 0
