/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <PictureCheck.h>

#include <algorithm>
#include <cstring>
#include <iterator>

#include <ByteReader.h>
#include <PictureBounds.h>


static const size_t kSignatureSize = 8;
// Around a chunk's content: its size and its type before, a checksum behind.
static const size_t kChunkHeadSize = 8;
static const size_t kChunkSumSize = 4;
static const size_t kHeaderSize = 13;

// What a picture's pixels depend on. Others hold texts and profiles, also compressed ones, and
// further pictures.
static const char kChunks[][5] = {"IHDR", "PLTE", "tRNS", "gAMA", "sRGB", "pHYs", "IDAT", "IEND"};


static bool
has_type(const uint8* chunk, const char* type)
{
	return memcmp(chunk + 4, type, 4) == 0;
}


static bool
is_handed_on(const uint8* chunk)
{
	return std::any_of(std::begin(kChunks), std::end(kChunks), [chunk](const char* type) {
		return has_type(chunk, type);
	});
}


/*!	A file whose end is missing is refused, as its decoder would do. */
bool
CheckPng(const uint8* bytes, size_t size, CheckedPicture* _picture)
{
	ByteReader reader(bytes, size);
	append_bytes(&_picture->bytes, reader.Take(kSignatureSize), kSignatureSize);

	for (int32 i = 0; i < kMaxPictureParts; i++) {
		const uint8* chunk = reader.Take(kChunkHeadSize);
		if (chunk == NULL)
			return false;
		const size_t content = big_32(chunk);
		if (reader.Take(content) == NULL || reader.Take(kChunkSumSize) == NULL)
			return false;

		// The header is the first one, and there is no other.
		const bool isHeader = has_type(chunk, "IHDR");
		if (isHeader != (i == 0) || (isHeader && content != kHeaderSize))
			return false;
		if (isHeader) {
			_picture->width = big_32(chunk + kChunkHeadSize);
			_picture->height = big_32(chunk + kChunkHeadSize + 4);
		}
		if (is_handed_on(chunk))
			append_bytes(&_picture->bytes, chunk, kChunkHeadSize + content + kChunkSumSize);
		if (has_type(chunk, "IEND"))
			return true;
	}
	return false;
}
