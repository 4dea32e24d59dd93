/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Clocks.h"

#include <cstdlib>
#include <ctime>
#include <dirent.h>
#include <fstream>
#include <string>


static double
seconds_of(clockid_t clock)
{
	timespec time = {};
	clock_gettime(clock, &time);
	return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}


double
WallTime()
{
	return seconds_of(CLOCK_MONOTONIC);
}


/*!	The CPU that all threads of this process have used. */
double
ProcessTime()
{
	return seconds_of(CLOCK_PROCESS_CPUTIME_ID);
}


/*!	The CPU that the calling thread has used. */
double
ThreadTime()
{
	return seconds_of(CLOCK_THREAD_CPUTIME_ID);
}


/*!	The CPU that another thread of this process has used, since it began. It should be waiting for
	something.
	\return A negative number when there is no thread of that name.
*/
double
ThreadTimeOf(const char* name)
{
	static const char* const kFolder = "/proc/self/task/";
	DIR* folder = opendir(kFolder);
	if (folder == NULL)
		return -1;

	double time = -1;
	for (const dirent* entry = readdir(folder); entry != NULL; entry = readdir(folder)) {
		std::string found;
		std::ifstream file(std::string(kFolder) + entry->d_name + "/comm");
		if (!std::getline(file, found) || found != name)
			continue;
		// How the kernel numbers the clock of a thread.
		const int thread = atoi(entry->d_name);
		time = seconds_of(clockid_t(~static_cast<unsigned>(thread) << 3 | 6));
	}
	closedir(folder);
	return time;
}
