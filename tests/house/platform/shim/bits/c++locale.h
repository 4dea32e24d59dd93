/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// A locale that the C++ library cannot have a number formatted by.
#pragma once
#pragma GCC system_header

#include <clocale>

#define _GLIBCXX_NUM_CATEGORIES 0


namespace std {

typedef int* __c_locale;

int __convert_from_v(const __c_locale&, char* __out, const int __size, const char* __fmt, ...);

} // namespace std
