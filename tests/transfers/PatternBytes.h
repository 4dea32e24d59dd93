/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PATTERN_BYTES_H
#define PATTERN_BYTES_H


#include <cstddef>
#include <cstdint>
#include <string>


// So many bytes of an endless row from an offset on, without a period: a piece that is lost,
// doubled or moved shows.
std::string PatternBytes(uint64_t offset, size_t count);

// Whether a file holds the piece so many times, then the rest and no more. Reads it piece by piece.
bool FileRepeats(const std::string& path, const std::string& piece, size_t times,
	const std::string& rest);


#endif // PATTERN_BYTES_H
