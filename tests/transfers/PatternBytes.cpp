/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "PatternBytes.h"

#include <fstream>


std::string
PatternBytes(uint64_t offset, size_t count)
{
	std::string bytes(count, '\0');
	for (size_t i = 0; i < count; i++)
		bytes[i] = static_cast<char>(((offset + i) * 0x9e3779b97f4a7c15ULL) >> 56);
	return bytes;
}


bool
FileRepeats(const std::string& path, const std::string& piece, size_t times,
	const std::string& rest)
{
	std::ifstream file(path, std::ios::binary);
	std::string buffer(piece.size(), '\0');
	const std::streamsize size = static_cast<std::streamsize>(piece.size());
	for (size_t i = 0; i < times; i++) {
		if (!file.read(buffer.data(), size) || buffer != piece)
			return false;
	}
	file.read(buffer.data(), size);
	return buffer.substr(0, static_cast<size_t>(file.gcount())) == rest;
}
