/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef WIRE_TRANSACTION_H
#define WIRE_TRANSACTION_H


#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>


// The numbers and the values of the fields, in their order.
using WireFields = std::vector<std::pair<uint16_t, std::string>>;


/*!	What a transaction says that was read from the wire. What is cut off is missing. */
struct WireTransaction {
	static constexpr size_t kHeaderSize = 20;

	WireTransaction() = default;
	explicit WireTransaction(const std::string& bytes);

	// The value of the first such field; nothing if there is none.
	std::string Field(uint16_t field) const;
	bool HasField(uint16_t field) const;
	// The same as a number of 16 bits.
	uint16_t Number(uint16_t field) const;

	uint32_t type = 0;
	uint32_t id = 0;
	uint32_t error = 0;
	WireFields fields;
};


// A big-endian number of so many bytes; those that are not there count as zero.
uint32_t wire_number_at(const std::string& bytes, size_t offset, size_t size);


#endif // WIRE_TRANSACTION_H
