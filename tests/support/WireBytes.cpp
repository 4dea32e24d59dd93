/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "WireBytes.h"

#include <algorithm>
#include <cstdio>


std::string
wire8(unsigned int value)
{
	return std::string(1, static_cast<char>(value));
}


std::string
wire16(unsigned int value)
{
	return wire8(value >> 8 & 0xff) + wire8(value & 0xff);
}


std::string
wire32(uint32_t value)
{
	return wire16(value >> 16) + wire16(value & 0xffff);
}


std::string
wire_zeros(size_t count)
{
	return std::string(count, '\0');
}


std::string
wire_param(unsigned int field, const std::string& value)
{
	return wire16(field) + wire16(static_cast<unsigned int>(value.size())) + value;
}


std::string
wire_transaction(uint32_t type, uint32_t id, const std::string& params, uint32_t error)
{
	unsigned int count = 0;
	for (size_t i = 0; i + 4 <= params.size(); count++) {
		const size_t high = static_cast<uint8_t>(params[i + 2]);
		i += 4 + (high << 8 | static_cast<uint8_t>(params[i + 3]));
	}
	const uint32_t size = static_cast<uint32_t>(2 + params.size());
	return wire_header(type, id, error, size, size, count) + params;
}


std::string
wire_header(uint32_t type, uint32_t id, uint32_t error, uint32_t totalSize, uint32_t dataSize,
	unsigned int count)
{
	return wire32(type) + wire32(id) + wire32(error) + wire32(totalSize) + wire32(dataSize)
		+ wire16(count);
}


std::string
wire_dump(const std::string& bytes)
{
	std::string dump = std::to_string(bytes.size()) + " bytes\n";
	for (size_t line = 0; line < bytes.size(); line += 16) {
		std::string text;
		for (size_t i = line; i < std::min(line + 16, bytes.size()); i++) {
			char hex[4];
			snprintf(hex, sizeof(hex), "%02x ", static_cast<unsigned int>(bytes[i] & 0xff));
			dump += hex;
			text += bytes[i] >= ' ' && bytes[i] < 127 ? bytes[i] : '.';
		}
		dump += " " + text + "\n";
	}
	return dump;
}
