/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CLOCKS_H
#define CLOCKS_H


/*!	The system's own accounts, in seconds. CPU seconds count what the kernel did for the process,
	too.
*/
double WallTime();
double ProcessTime();
double ThreadTime();
double ThreadTimeOf(const char* name);


#endif // CLOCKS_H
