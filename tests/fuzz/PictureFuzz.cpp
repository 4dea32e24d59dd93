/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <vector>

#include <Bitmap.h>

#include "PictureBounds.h"
#include "PictureCheck.h"
#include "PictureDecoder.h"
#include "PictureSize.h"
#include "Require.h"


// Larger pictures are looked at only: decoding them would take all of the time.
static const uint64_t kMaxDecodedPixels = 64 * 1024;
static const int64_t kLongTime = 1000000000;


/*!	What has been handed on is checked again, with the same result. */
static void
check_again(const CheckedPicture& picture)
{
	CheckedPicture again;
	require(CheckPicture(picture.bytes.data(), picture.bytes.size(), &again),
		"what is handed on is a picture");
	require(again.kind == picture.kind && again.width == picture.width
			&& again.height == picture.height && again.bytes == picture.bytes,
		"what is handed on is handed on as it is");
}


static void
decode(const CheckedPicture& picture)
{
	const std::unique_ptr<BBitmap> bitmap(DecodePicture(picture, kLongTime));
	if (bitmap == NULL)
		return;
	require(bitmap->IsValid(), "a picture is a bitmap");
	require(std::lround(bitmap->Bounds().Width()) + 1 == static_cast<long>(picture.width)
			&& std::lround(bitmap->Bounds().Height()) + 1 == static_cast<long>(picture.height),
		"a bitmap has the size that was announced");
}


/*!	The input is a picture file. */
extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	uint32 width = 0;
	uint32 height = 0;
	const bool hasSize = ReadPictureSize(data, size, &width, &height);

	CheckedPicture picture;
	if (!CheckPicture(data, size, &picture))
		return 0;
	require(size <= kMaxPictureFile && picture.bytes.size() <= size + 2, "the bytes are bounded");
	require(IsBearablePicture(picture.width, picture.height), "the pixels are bounded");
	require(hasSize && width == picture.width && height == picture.height,
		"the size is the announced one");
	check_again(picture);
	if (static_cast<uint64_t>(width) * height <= kMaxDecodedPixels)
		decode(picture);
	return 0;
}
