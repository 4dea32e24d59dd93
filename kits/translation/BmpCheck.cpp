/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <PictureCheck.h>

#include <ByteReader.h>


static const size_t kFileHeaderSize = 14;
// The size of the second header tells which one it is: an old one has 16 bits for an edge.
static const size_t kOldHeaderSize = 12;
static const size_t kHeaderSize = 40;


/*!	The height is below zero where the rows stand from the top to the bottom. */
bool
CheckBmp(const uint8* bytes, size_t size, CheckedPicture* _picture)
{
	ByteReader reader(bytes, size);
	const uint8* header = NULL;
	if (reader.Take(kFileHeaderSize) != NULL)
		header = reader.Take(kOldHeaderSize);
	if (header == NULL)
		return false;

	const uint32 headerSize = little_32(header);
	if (headerSize == kOldHeaderSize) {
		_picture->width = little_16(header + 4);
		_picture->height = little_16(header + 6);
	} else {
		if (headerSize < kHeaderSize || reader.Take(kHeaderSize - kOldHeaderSize) == NULL)
			return false;
		const uint32 height = little_32(header + 8);
		_picture->width = little_32(header + 4);
		_picture->height = height < 0x80000000 ? height : 0 - height;
	}
	append_bytes(&_picture->bytes, bytes, size);
	return true;
}
