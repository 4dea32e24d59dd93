/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_BYTE_ORDER_H
#define DEMO_BYTE_ORDER_H


#include <cstdint>
#include <string>


namespace demo {


// Numbers travel with their most significant byte first.

inline uint16_t
read_16(const uint8_t* bytes)
{
	return static_cast<uint16_t>(bytes[0] << 8 | bytes[1]);
}


inline uint32_t
read_32(const uint8_t* bytes)
{
	return static_cast<uint32_t>(read_16(bytes)) << 16 | read_16(bytes + 2);
}


inline void
append_16(std::string& bytes, uint16_t value)
{
	bytes.push_back(static_cast<char>(value >> 8));
	bytes.push_back(static_cast<char>(value & 0xff));
}


inline void
append_32(std::string& bytes, uint32_t value)
{
	append_16(bytes, static_cast<uint16_t>(value >> 16));
	append_16(bytes, static_cast<uint16_t>(value & 0xffff));
}


} // namespace demo


#endif // DEMO_BYTE_ORDER_H
