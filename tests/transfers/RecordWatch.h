/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef RECORD_WATCH_H
#define RECORD_WATCH_H


// Whether heap objects have been deleted, seen at the calls of operator delete. Any thread; few objects at a time.
void WatchRecord(const void* record);
bool IsRecordWatched(const void* record);


#endif // RECORD_WATCH_H
