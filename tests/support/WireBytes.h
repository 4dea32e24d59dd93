/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef WIRE_BYTES_H
#define WIRE_BYTES_H


#include <cstdint>
#include <string>


/*!	What a test expects on the wire or sends itself, written field by field. Knows nothing of the
	client's own code.
*/
std::string wire8(unsigned int value);
std::string wire16(unsigned int value);
std::string wire32(uint32_t value);
std::string wire_zeros(size_t count);

// One parameter.
std::string wire_param(unsigned int field, const std::string& value);

// A whole transaction: the first word, the id, the error word and the parameters, which are
// counted.
std::string wire_transaction(uint32_t type, uint32_t id, const std::string& params,
	uint32_t error = 0);

// A header with sizes and a count of the test's choice.
std::string wire_header(uint32_t type, uint32_t id, uint32_t error, uint32_t totalSize,
	uint32_t dataSize, unsigned int count);

// Readable, for comparing: 16 bytes in a line, in hexadecimal and as text.
std::string wire_dump(const std::string& bytes);


#endif // WIRE_BYTES_H
