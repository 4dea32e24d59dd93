/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ProcessCounts.h"

#include <filesystem>
#include <fstream>
#include <iterator>


static size_t
count_entries(const char* folder)
{
	const std::filesystem::directory_iterator entries(folder);
	return static_cast<size_t>(std::distance(begin(entries), end(entries)));
}


size_t
count_threads()
{
	return count_entries("/proc/self/task");
}


size_t
count_threads_named(const std::string& beginning)
{
	size_t count = 0;
	for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
		std::string name;
		// A thread that has just ended has no name any more.
		std::getline(std::ifstream(thread.path() / "comm"), name);
		if (name.compare(0, beginning.size(), beginning) == 0)
			count++;
	}
	return count;
}


size_t
count_descriptors()
{
	return count_entries("/proc/self/fd");
}


size_t
peak_memory()
{
	std::ifstream status("/proc/self/status");
	std::string line;
	while (std::getline(status, line)) {
		if (line.compare(0, 6, "VmHWM:") == 0)
			return std::stoul(line.substr(6)) * 1024;
	}
	return 0;
}


size_t
forget_peak_memory()
{
	std::ofstream("/proc/self/clear_refs") << "5";
	return peak_memory();
}
