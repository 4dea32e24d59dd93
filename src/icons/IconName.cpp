/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "IconName.h"

#include <cstdlib>
#include <cstring>


// The longest name before ".png" that is taken for a number, in bytes.
static const size_t kMaxIconStem = 15;


uint16
IconNumber(const char* fileName)
{
	const char* ending = strrchr(fileName, '.');
	if (ending == NULL || strcmp(ending, ".png") != 0)
		return 0;
	const size_t stem = static_cast<size_t>(ending - fileName);
	if (stem < 1 || stem > kMaxIconStem)
		return 0;

	// Unlike atoi() this has an answer for every number, however long.
	const long number = strtol(fileName, NULL, 10);
	return number > 0 && number < 65536 ? static_cast<uint16>(number) : 0;
}
