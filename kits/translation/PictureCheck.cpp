/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <PictureCheck.h>

#include <cstring>

#include <PictureBounds.h>


// How the files of a kind begin, and what looks at them.
static const struct {
	const char* signature;
	size_t length;
	PictureKind kind;
	bool (*check)(const uint8* bytes, size_t size, CheckedPicture* _picture);
} kKinds[] = {
	{"\x89PNG\r\n\x1a\n", 8, kPngPicture, CheckPng},
	{"\xff\xd8\xff", 3, kJpegPicture, CheckJpeg},
	{"GIF87a", 6, kGifPicture, CheckGif},
	{"GIF89a", 6, kGifPicture, CheckGif},
	{"BM", 2, kBmpPicture, CheckBmp},
};


bool
IsBearablePicture(uint32 width, uint32 height)
{
	return width > 0 && width <= kMaxPictureEdge && height > 0 && height <= kMaxPictureEdge
		&& static_cast<uint64>(width) * height <= kMaxPicturePixels;
}


bool
CheckPicture(const uint8* bytes, size_t size, CheckedPicture* _picture)
{
	*_picture = CheckedPicture();
	if (size > kMaxPictureFile)
		return false;

	for (const auto& kind : kKinds) {
		if (size < kind.length || memcmp(bytes, kind.signature, kind.length) != 0)
			continue;
		_picture->kind = kind.kind;
		return kind.check(bytes, size, _picture)
			&& IsBearablePicture(_picture->width, _picture->height);
	}
	return false;
}
