/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <LockHolder.h>

#include <vector>

#include <ThreadPrivate.h>


// Ids of threads are positive, and -1 and -2 mean nobody.
static const thread_id kFirstId = -10;

// Of the loopers that the main thread acts for, the innermost last. The main thread's own, and
// never destroyed.
static std::vector<thread_id>&
stack()
{
	static std::vector<thread_id>* const sStack = new std::vector<thread_id>;
	return *sStack;
}


thread_id
LockHolder::Current()
{
	if (!is_main_thread() || stack().empty())
		return find_thread(NULL);
	return stack().back();
}


thread_id
LockHolder::IdOf(int32 looperToken)
{
	return kFirstId - looperToken;
}


void
LockHolder::Push(int32 looperToken)
{
	stack().push_back(IdOf(looperToken));
}


void
LockHolder::Pop()
{
	stack().pop_back();
}
