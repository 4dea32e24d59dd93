/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "PictureSize.h"

#include <gtest/gtest.h>

#include "JpegBytes.h"
#include "PictureBytes.h"


/*!	"width x height", or "none". */
static std::string
size_of(const std::string& bytes)
{
	uint32 width = 0;
	uint32 height = 0;
	// A copy without a byte to spare.
	const std::vector<uint8> exact(bytes.begin(), bytes.end());
	if (!ReadPictureSize(exact.data(), exact.size(), &width, &height))
		return "none";
	return std::to_string(width) + " x " + std::to_string(height);
}


TEST(PictureSizeTest, EachKind_AnnouncesItsSize)
{
	EXPECT_EQ("300 x 2", size_of(make_black_png(300, 2)));
	EXPECT_EQ("300 x 2", size_of(make_gray_jpeg(300, 2, 3)));
	EXPECT_EQ("300 x 2", size_of(make_black_gif(300, 2)));
	EXPECT_EQ("300 x 2", size_of(make_bmp(300, 2, 24)));
	EXPECT_EQ("300 x 2", size_of(make_bmp(300, -2, 24)));
	EXPECT_EQ("4294967295 x 2147483648", size_of(make_bmp(-1, INT32_MIN, 24)));
	// The old header of a BMP.
	const std::string old("\x0c\0\0\0\x2c\x01\x02\0\x01\0\x18\0", 12);
	EXPECT_EQ("300 x 2", size_of(make_bmp(1, 1, 4).substr(0, 14) + old));
}


TEST(PictureSizeTest, FileCutAtAnyByte_IsNoneOrHasTheSize)
{
	for (const std::string& whole : {make_black_png(300, 2), make_gray_jpeg(300, 2, 3),
			 make_black_gif(300, 2), make_bmp(300, 2, 24)}) {
		std::string before = "none";
		for (size_t length = 0; length <= whole.size(); length++) {
			SCOPED_TRACE(length);
			const std::string size = size_of(whole.substr(0, length));
			EXPECT_TRUE(size == before || (before == "none" && size == "300 x 2")) << size;
			before = size;
		}
		EXPECT_EQ("300 x 2", before);
	}
}


TEST(PictureSizeTest, WhatStandsBeforeTheFrameOfAJpeg_IsPassedOver)
{
	const std::string frame = jpeg_frame(0xc2, 300, 2);
	const std::string start("\xff\xd8");
	EXPECT_EQ("300 x 2", size_of(start + jpeg_segment(0xe1, std::string(60000, '\xff')) + frame));
	EXPECT_EQ("300 x 2", size_of(start + "\xff\xff\xff\x01\xff\xd0 more " + frame));
	EXPECT_EQ("300 x 2", size_of(start + jpeg_segment(0xc4, "tables") + frame));
	EXPECT_EQ("none", size_of(start + jpeg_segment(0xe1, "profile") + jpeg_frame(0xc9, 300, 2)));
}


TEST(PictureSizeTest, WhatIsNone_HasNoSize)
{
	for (const char* bytes : {"", "x", "GIF8", "BM", "\x89PNG\r\n\x1a\n", "\xff\xd8",
			 "\xff\xd8\xff", "P6\n300 2\n255\n......................................"})
		EXPECT_EQ("none", size_of(bytes)) << bytes;
}
