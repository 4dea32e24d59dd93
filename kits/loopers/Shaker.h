/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SHAKER_H
#define SHAKER_H


#include <SupportDefs.h>


/*!	Chooses what comes next where on Haiku, with a thread for each window, anything might. Only in
	builds with PALIMBRA_STRICT, and there when the environment variable PALIMBRA_SHAKE has a seed
	above 0, which is printed: with the same seed the same is chosen. Main thread only.
*/
class Shaker {
public:
#ifdef PALIMBRA_STRICT
	static bool IsOn();
#else
	static constexpr bool IsOn()
	{
		return false;
	}
#endif

	// A number below \a count; 0 when nothing is to be shaken.
	static size_t Choose(size_t count);
};


#endif // SHAKER_H
