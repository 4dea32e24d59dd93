/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PROCESS_COUNTS_H
#define PROCESS_COUNTS_H


#include <cstddef>
#include <string>


// Of this process, the calling thread included.
size_t count_threads();
// Those whose names begin so.
size_t count_threads_named(const std::string& beginning);
size_t count_descriptors();
// The most memory that it had since it was forgotten last, in bytes; forgetting returns what it has.
size_t peak_memory();
size_t forget_peak_memory();


#endif // PROCESS_COUNTS_H
