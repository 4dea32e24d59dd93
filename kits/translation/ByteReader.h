/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef BYTE_READER_H
#define BYTE_READER_H


#include <vector>

#include <SupportDefs.h>


/*!	Walks the bytes of a file, which it borrows; never beyond their end. */
class ByteReader {
public:
	ByteReader(const uint8* bytes, size_t size)
		: fHere(bytes),
		  fLeft(size)
	{
	}

	const uint8* Here() const { return fHere; }
	size_t Left() const { return fLeft; }

	const uint8* Take(size_t size);

private:
	const uint8* fHere;
	size_t fLeft;
};


inline void
append_bytes(std::vector<uint8>* bytes, const uint8* more, size_t size)
{
	bytes->insert(bytes->end(), more, more + size);
}


inline uint16
big_16(const uint8* bytes)
{
	return static_cast<uint16>(bytes[0] << 8 | bytes[1]);
}


inline uint32
big_32(const uint8* bytes)
{
	return static_cast<uint32>(big_16(bytes)) << 16 | big_16(bytes + 2);
}


inline uint16
little_16(const uint8* bytes)
{
	return static_cast<uint16>(bytes[1] << 8 | bytes[0]);
}


inline uint32
little_32(const uint8* bytes)
{
	return static_cast<uint32>(little_16(bytes + 2)) << 16 | little_16(bytes);
}


#endif // BYTE_READER_H
