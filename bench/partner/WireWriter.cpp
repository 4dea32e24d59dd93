/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "WireWriter.h"


void
WireWriter::Number(uint64_t value, int bytes)
{
	for (int shift = (bytes - 1) * 8; shift >= 0; shift -= 8)
		fBytes += static_cast<char>(value >> shift & 0xff);
}


void
WireWriter::Field(uint16_t id, const std::string& value)
{
	Number(id, 2);
	Number(value.size(), 2);
	Text(value);
}


std::string
Transaction(uint32_t type, uint32_t id, int fieldCount, const std::string& fields)
{
	WireWriter writer;
	writer.Number(type, 4);
	writer.Number(id, 4);
	writer.Number(0, 4);
	writer.Number(fields.size() + 2, 4);
	writer.Number(fields.size() + 2, 4);
	writer.Number(static_cast<uint64_t>(fieldCount), 2);
	writer.Text(fields);
	return writer.Bytes();
}
