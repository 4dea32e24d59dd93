/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef REQUIRE_H
#define REQUIRE_H


#include <cstdio>
#include <cstdlib>


/*!	Ends the fuzzer at this input unless the condition holds. */
inline void
require(bool condition, const char* what)
{
	if (!condition) {
		fprintf(stderr, "broken: %s\n", what);
		abort();
	}
}


#endif // REQUIRE_H
