/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Gate.h"


Gate::Gate()
	: fHasOpened(fOpening.get_future().share())
{
}


void
Gate::Enter()
{
	bool isFirst = false;
	std::call_once(fIsFirst, [&] {
		isFirst = true;
	});
	if (!isFirst)
		return;

	// The gate may go as soon as it has opened.
	const std::shared_future<void> hasOpened = fHasOpened;
	fArrival.set_value();
	hasOpened.wait();
}


void
Gate::WaitForArrival()
{
	fArrival.get_future().wait();
}


void
Gate::Open()
{
	fOpening.set_value();
}
