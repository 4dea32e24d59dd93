/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "PatternBytes.h"


std::string
PatternBytes(uint64_t offset, size_t count)
{
	std::string bytes(count, '\0');
	for (size_t i = 0; i < count; i++)
		bytes[i] = char(((offset + i) * 0x9e3779b97f4a7c15ULL) >> 56);
	return bytes;
}
