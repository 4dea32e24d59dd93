/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RecordWatch.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>


static const size_t kMaxRecords = 64;
static std::atomic<const void*> sRecords[kMaxRecords];


extern "C"
{
	void __real__ZdlPv(void* memory);
	void __real__ZdlPvm(void* memory, size_t size);

	void __wrap__ZdlPv(void* memory);
	void __wrap__ZdlPvm(void* memory, size_t size);
}


static void
forget(const void* memory)
{
	if (memory == nullptr)
		return;
	for (std::atomic<const void*>& record : sRecords) {
		const void* expected = memory;
		if (record.compare_exchange_strong(expected, nullptr))
			return;
	}
}


void
__wrap__ZdlPv(void* memory)
{
	forget(memory);
	__real__ZdlPv(memory);
}


void
__wrap__ZdlPvm(void* memory, size_t size)
{
	forget(memory);
	__real__ZdlPvm(memory, size);
}


void
WatchRecord(const void* watched)
{
	for (std::atomic<const void*>& record : sRecords) {
		const void* expected = nullptr;
		if (record.compare_exchange_strong(expected, watched))
			return;
	}
	abort();
}


bool
IsRecordWatched(const void* watched)
{
	for (const std::atomic<const void*>& record : sRecords) {
		if (record == watched)
			return true;
	}
	return false;
}
