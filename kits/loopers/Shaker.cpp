/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Shaker.h>

#include <cstdio>
#include <cstdlib>
#include <random>


#ifdef PALIMBRA_STRICT

static unsigned long
read_seed()
{
	const char* text = getenv("PALIMBRA_SHAKE");
	const unsigned long seed = text != NULL ? strtoul(text, NULL, 10) : 0;
	if (seed > 0)
		fprintf(stderr, "PALIMBRA_SHAKE=%lu\n", seed);
	return seed;
}


static unsigned long
seed()
{
	static const unsigned long sSeed = read_seed();
	return sSeed;
}


bool
Shaker::IsOn()
{
	return seed() > 0;
}


size_t
Shaker::Choose(size_t count)
{
	if (!IsOn() || count == 0)
		return 0;

	static std::mt19937_64 sNumbers(seed());
	return static_cast<size_t>(sNumbers() % count);
}

#else

size_t
Shaker::Choose(size_t /*count*/)
{
	return 0;
}

#endif // PALIMBRA_STRICT
