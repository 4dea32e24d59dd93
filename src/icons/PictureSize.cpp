/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "PictureSize.h"

#include <cstring>


static uint16
big_16(const uint8* bytes)
{
	return static_cast<uint16>(bytes[0] << 8 | bytes[1]);
}


static uint32
big_32(const uint8* bytes)
{
	return static_cast<uint32>(big_16(bytes)) << 16 | big_16(bytes + 2);
}


static uint16
little_16(const uint8* bytes)
{
	return static_cast<uint16>(bytes[1] << 8 | bytes[0]);
}


static uint32
little_32(const uint8* bytes)
{
	return static_cast<uint32>(little_16(bytes + 2)) << 16 | little_16(bytes);
}


static bool
begins(const uint8* bytes, size_t size, const char* signature, size_t length)
{
	return size >= length && memcmp(bytes, signature, length) == 0;
}


/*!	The segment of a frame's header, behind others, has its height and its width. */
static bool
read_jpeg(const uint8* bytes, size_t size, uint32* _width, uint32* _height)
{
	size_t at = 2;
	while (size - at >= 4) {
		if (bytes[at] != 0xff) {
			at++;
			continue;
		}
		const uint8 marker = bytes[at + 1];
		// What is none, and what has no content.
		if (marker == 0 || marker == 0xff || marker == 0x01 || (marker >= 0xd0 && marker <= 0xd8)) {
			at += marker == 0xff ? 1 : 2;
			continue;
		}
		if (marker >= 0xc0 && marker <= 0xc2) {
			if (size - at < 9)
				return false;
			*_height = big_16(bytes + at + 5);
			*_width = big_16(bytes + at + 7);
			return true;
		}
		const size_t segment = 2u + big_16(bytes + at + 2);
		if (segment > size - at)
			return false;
		at += segment;
	}
	return false;
}


bool
ReadPictureSize(const uint8* bytes, size_t size, uint32* _width, uint32* _height)
{
	if (begins(bytes, size, "\x89PNG\r\n\x1a\n", 8) && size >= 24) {
		*_width = big_32(bytes + 16);
		*_height = big_32(bytes + 20);
		return true;
	}
	if (begins(bytes, size, "GIF8", 4) && size >= 10) {
		*_width = little_16(bytes + 6);
		*_height = little_16(bytes + 8);
		return true;
	}
	if (begins(bytes, size, "\xff\xd8", 2))
		return read_jpeg(bytes, size, _width, _height);
	if (begins(bytes, size, "BM", 2) && size >= 26) {
		// An old header has 16 bits for each; the height may be below zero in others.
		const bool isOld = little_32(bytes + 14) == 12;
		const uint32 height = isOld ? little_16(bytes + 20) : little_32(bytes + 22);
		*_width = isOld ? little_16(bytes + 18) : little_32(bytes + 18);
		*_height = height < 0x80000000 ? height : 0 - height;
		return true;
	}
	return false;
}
