/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef WAIT_FOR_H
#define WAIT_FOR_H


#include <functional>


/*!	Waits until the condition holds; false when it does not within the given number of seconds.
	In suites with windows the messages and the events of the application are served meanwhile.
*/
bool WaitFor(const std::function<bool()>& condition, int seconds = 10);


#endif // WAIT_FOR_H
