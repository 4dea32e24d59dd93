/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Reserve.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <poll.h>
#include <sys/resource.h>


static const size_t kSpareDescriptors = 16;
// So many numbers of descriptors are looked at together.
static const size_t kBlock = 64;
// In bytes. More than all queues together may hold.
static const size_t kSpareMemory = 32 * 1024 * 1024;


/*!	How many of the numbers from \a first on are free to be taken, as far as \a count of them. */
static size_t
count_free(int first, size_t count)
{
	std::array<pollfd, kBlock> numbers;
	for (size_t i = 0; i < count; i++)
		numbers[i] = {first + static_cast<int>(i), 0, 0};
	if (poll(numbers.data(), static_cast<nfds_t>(count), 0) < 0)
		return 0;
	return static_cast<size_t>(
		std::count_if(numbers.begin(), numbers.begin() + count, [](const pollfd& number) {
			return (number.revents & POLLNVAL) != 0;
		}));
}


/*!	Whether 16 more can be had. Asked before a transfer or a connection, not for each piece of it.
	None is taken for that: another thread might be in need of it at that moment.
	\param besides So many others have been promised and may not have been taken yet.
*/
bool
HasSpareDescriptors(size_t besides)
{
	rlimit limit;
	if (getrlimit(RLIMIT_NOFILE, &limit) != 0)
		return false;
	const size_t wanted = kSpareDescriptors + besides;
	size_t found = 0;
	for (size_t first = 0; found < wanted && first < limit.rlim_cur; first += kBlock) {
		const size_t count = std::min<size_t>(kBlock, limit.rlim_cur - first);
		found += count_free(static_cast<int>(first), count);
	}
	return found >= wanted;
}


/*!	Whether a block of 32 MiB can be had. It is not touched, so that this takes some microseconds. */
bool
HasSpareMemory()
{
	void* volatile block = malloc(kSpareMemory);
	free(block);
	return block != NULL;
}
