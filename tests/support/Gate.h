/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef GATE_H
#define GATE_H


#include <future>
#include <mutex>


/*!	Where a test holds a thread, inside of a call of its, until the test lets it go on. It holds the
	first one that comes; others pass.
*/
class Gate {
public:
	Gate();

	void Enter();

	void WaitForArrival();
	void Open();

private:
	std::once_flag fIsFirst;
	std::promise<void> fArrival;
	std::promise<void> fOpening;
	std::shared_future<void> fHasOpened;
};


#endif // GATE_H
