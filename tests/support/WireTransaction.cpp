/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "WireTransaction.h"

#include <algorithm>


WireTransaction::WireTransaction(const std::string& bytes)
	: type(wire_number_at(bytes, 0, 4)),
	  id(wire_number_at(bytes, 4, 4)),
	  error(wire_number_at(bytes, 8, 4))
{
	size_t offset = kHeaderSize + 2;
	while (offset + 4 <= bytes.size()) {
		const uint16_t field = static_cast<uint16_t>(wire_number_at(bytes, offset, 2));
		const size_t length = wire_number_at(bytes, offset + 2, 2);
		fields.emplace_back(field, bytes.substr(offset + 4, length));
		offset += 4 + length;
	}
}


std::string
WireTransaction::Field(uint16_t field) const
{
	for (const auto& [number, value] : fields) {
		if (number == field)
			return value;
	}
	return "";
}


bool
WireTransaction::HasField(uint16_t field) const
{
	return std::any_of(fields.begin(), fields.end(), [field](const auto& entry) {
		return entry.first == field;
	});
}


uint16_t
WireTransaction::Number(uint16_t field) const
{
	return static_cast<uint16_t>(wire_number_at(Field(field), 0, 2));
}


uint32_t
wire_number_at(const std::string& bytes, size_t offset, size_t size)
{
	uint32_t value = 0;
	for (size_t i = offset; i < offset + size; i++)
		value = value << 8 | (i < bytes.size() ? static_cast<uint8_t>(bytes[i]) : 0);
	return value;
}
