/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Reserve.h"

#include <array>
#include <cstdlib>
#include <unistd.h>
#include <vector>


static const size_t kSpareDescriptors = 16;
// In bytes. More than all queues together may hold.
static const size_t kSpareMemory = 32 * 1024 * 1024;


/*!	Whether 16 more can be had. Asked before a transfer or a connection, not for each piece of it.
	\param besides So many others have been promised and may not have been taken yet.
*/
bool
HasSpareDescriptors(size_t besides)
{
	const size_t wanted = (kSpareDescriptors + besides + 1) / 2;
	std::vector<std::array<int, 2>> pipes;
	std::array<int, 2> ends;
	while (pipes.size() < wanted && pipe(ends.data()) == 0)
		pipes.push_back(ends);
	for (const std::array<int, 2>& taken : pipes) {
		close(taken[0]);
		close(taken[1]);
	}
	return pipes.size() == wanted;
}


/*!	Whether a block of 32 MiB can be had. It is not touched, so that this takes some microseconds. */
bool
HasSpareMemory()
{
	void* volatile block = malloc(kSpareMemory);
	free(block);
	return block != NULL;
}
