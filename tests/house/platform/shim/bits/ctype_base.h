/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// The classes of characters, with numbers of their own.
#pragma once
#pragma GCC system_header


namespace std {

struct ctype_base {
	typedef const int* __to_type;
	typedef unsigned short mask;
	static const mask upper = 1 << 0;
	static const mask lower = 1 << 1;
	static const mask alpha = 1 << 2;
	static const mask digit = 1 << 3;
	static const mask xdigit = 1 << 4;
	static const mask space = 1 << 5;
	static const mask print = 1 << 6;
	static const mask cntrl = 1 << 7;
	static const mask punct = 1 << 8;
	static const mask blank = 1 << 9;
	static const mask alnum = alpha | digit;
	static const mask graph = alnum | punct;
};

} // namespace std
