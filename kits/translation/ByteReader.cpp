/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ByteReader.h>


/*!	\return The next bytes, and goes on behind them; \c NULL, and stays, when there are fewer. */
const uint8*
ByteReader::Take(size_t size)
{
	if (size > fLeft)
		return NULL;
	const uint8* taken = fHere;
	fHere += size;
	fLeft -= size;
	return taken;
}
