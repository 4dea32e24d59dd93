/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Fail.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>


void
Fail(const char* what)
{
	fprintf(stderr, "%s: failed (%s)\n", what, strerror(errno));
	exit(1);
}
