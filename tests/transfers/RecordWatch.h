/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef RECORD_WATCH_H
#define RECORD_WATCH_H


#include <SupportDefs.h>


// Whether heap objects have been deleted, seen at the calls of operator delete. Any thread; few
// objects at a time. Each watch has a number of its own, as another object may soon be where a
// deleted one was.
uint64 WatchRecord(const void* record);
bool IsRecordWatched(uint64 watch);


#endif // RECORD_WATCH_H
