/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FAIL_H
#define FAIL_H


/*!	Ends the program with status 1 and says why: a measurement that did not do its work has no
	figures.
*/
[[noreturn]] void Fail(const char* what);


#endif // FAIL_H
