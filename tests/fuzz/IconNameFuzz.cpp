/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "IconName.h"
#include "Require.h"


/*!	What a file's name says, read in the plainest way: ".png" behind 1 to 15 bytes, which begin with
	a number.
*/
static int
expected_number(const std::string& name)
{
	if (name.size() < 5 || name.size() > 19 || name.substr(name.size() - 4) != ".png")
		return 0;
	const char* digit = name.c_str() + strspn(name.c_str(), " \t\n\v\f\r");
	if (*digit == '+')
		digit++;
	long long number = 0;
	for (; *digit >= '0' && *digit <= '9'; digit++)
		number = number * 10 + (*digit - '0');
	return number < 65536 ? static_cast<int>(number) : 0;
}


/*!	The input is the name of a file. */
extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	std::string name(reinterpret_cast<const char*>(data), size);
	name.resize(strlen(name.c_str()));
	require(IconNumber(name.c_str()) == expected_number(name), "the number of an icon");
	return 0;
}
