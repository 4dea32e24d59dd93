/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FileObject.h"

#include <fstream>

#include "WireBytes.h"


std::string
ForkHeader(const std::string& type, uint32_t size)
{
	return type + wire32(0) + wire32(0) + wire32(size);
}


std::string
InformationFork(const std::string& name)
{
	// Platform, type, creator, two words of flags, 32 reserved bytes, two dates of 8 bytes, the
	// script of the name, the name with its length, the length of the comment.
	return "AMAC????????" + wire32(0) + wire32(0) + wire_zeros(32) + wire_zeros(8) + wire_zeros(8)
		+ wire16(0) + wire16(uint16_t(name.size())) + name + wire16(0);
}


std::string
FileObject(const std::string& data, const std::string& information)
{
	return "FILP" + wire16(1) + wire_zeros(16) + wire16(2)
		+ ForkHeader("INFO", uint32_t(information.size())) + information
		+ ForkHeader("DATA", uint32_t(data.size())) + data;
}


bool
FileRepeats(const std::string& path, const std::string& piece, size_t times,
	const std::string& rest)
{
	std::ifstream file(path, std::ios::binary);
	std::string buffer(piece.size(), '\0');
	for (size_t i = 0; i < times; i++) {
		if (!file.read(buffer.data(), std::streamsize(buffer.size())) || buffer != piece)
			return false;
	}
	file.read(buffer.data(), std::streamsize(buffer.size()));
	return buffer.substr(0, size_t(file.gcount())) == rest;
}
