/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FILE_OBJECT_H
#define FILE_OBJECT_H


#include <cstddef>
#include <cstdint>
#include <string>


// A flattened file object as a server sends it, or parts of it.

std::string ForkHeader(const std::string& type, uint32_t size);
// With the information that the client itself would send for a file of that name.
std::string InformationFork(const std::string& name);
std::string FileObject(const std::string& data,
	const std::string& information = InformationFork("notes.txt"));

// Whether a file holds the piece so many times, then the rest and no more. Reads it piece by piece.
bool FileRepeats(const std::string& path, const std::string& piece, size_t times,
	const std::string& rest);


#endif // FILE_OBJECT_H
