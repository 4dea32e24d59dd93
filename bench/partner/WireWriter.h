/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef WIRE_WRITER_H
#define WIRE_WRITER_H


#include <cstdint>
#include <string>


/*!	Puts the bytes together that the partner sends; all numbers are big-endian. */
class WireWriter {
public:
	void Number(uint64_t value, int bytes);
	void Text(const std::string& text) { fBytes += text; }
	void Zeros(size_t count) { fBytes.append(count, '\0'); }
	void Field(uint16_t id, const std::string& value);

	const std::string& Bytes() const { return fBytes; }

private:
	std::string fBytes;
};


std::string Transaction(uint32_t type, uint32_t id, int fieldCount, const std::string& fields);


#endif // WIRE_WRITER_H
