/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RecordWatch.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>


static const size_t kMaxRecords = 64;


struct WatchedRecord {
	// NULL in a free one; this structure itself while it is being filled.
	std::atomic<const void*> memory;
	std::atomic<uint64> watch;
};


static WatchedRecord sRecords[kMaxRecords];
static std::atomic<uint64> sLastWatch(0);


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
	for (WatchedRecord& record : sRecords) {
		const void* expected = memory;
		if (record.memory.compare_exchange_strong(expected, nullptr))
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


uint64
WatchRecord(const void* watched)
{
	for (WatchedRecord& record : sRecords) {
		const void* expected = nullptr;
		if (!record.memory.compare_exchange_strong(expected, &record))
			continue;
		const uint64 watch = ++sLastWatch;
		record.watch = watch;
		record.memory = watched;
		return watch;
	}
	abort();
}


bool
IsRecordWatched(uint64 watch)
{
	for (const WatchedRecord& record : sRecords) {
		const void* memory = record.memory;
		if (memory != nullptr && memory != &record && record.watch == watch)
			return true;
	}
	return false;
}
