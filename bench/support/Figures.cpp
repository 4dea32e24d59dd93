/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Figures.h"

#include <cstdio>


void
Figures::Print() const
{
	const char* separator = "";
	putchar('{');
	for (const auto& [key, value] : fValues) {
		printf("%s\"%s\": %.9g", separator, key.c_str(), value);
		separator = ", ";
	}
	puts("}");
}
