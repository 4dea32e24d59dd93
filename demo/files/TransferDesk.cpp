/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransferDesk.h"

#include <utility>


namespace demo {


static const std::chrono::milliseconds kKeptFor(120000);


TransferDesk::TransferDesk(TimerQueue& timers)
	: fTimers(timers)
{
}


/*!	\return The reference under which to ask for it; 0 when too many wait already. */
uint32_t
TransferDesk::Add(TransferOrder order)
{
	if (fEntries.size() >= kMaxOrders)
		return 0;
	do
		fLastReference++;
	while (fLastReference == 0 || fEntries.count(fLastReference) != 0);

	uint32_t reference = fLastReference;
	uint64_t timer = fTimers.Add(kKeptFor, [this, reference] {
		fEntries.erase(reference);
	});
	fEntries.emplace(reference, Entry{std::move(order), timer});
	return reference;
}


/*!	Each order can be taken once.
	\return \c false when there is none under that reference.
*/
bool
TransferDesk::Take(uint32_t reference, TransferOrder* _order)
{
	auto found = fEntries.find(reference);
	if (found == fEntries.end())
		return false;
	*_order = std::move(found->second.order);
	fTimers.Cancel(found->second.timer);
	fEntries.erase(found);
	return true;
}


} // namespace demo
