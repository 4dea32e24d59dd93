/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LOCK_HOLDER_H
#define LOCK_HOLDER_H


#include <OS.h>


/*!	Who takes a lock. On Haiku that is a thread, and each window has one. Here the main thread
	stands in for all of theirs: while it is in a handler of a looper it takes and gives back locks
	as that looper's thread would, and otherwise as itself. Static only.
*/
class LockHolder {
public:
	// The calling thread's id, or what stands for the one that the looper would have.
	static thread_id Current();
	static thread_id IdOf(int32 looperToken);

	// The main thread begins to act for a looper, and ends that.
	static void Push(int32 looperToken);
	static void Pop();
};


#endif // LOCK_HOLDER_H
