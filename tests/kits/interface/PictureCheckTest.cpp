/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <PictureCheck.h>

#include <memory>

#include <gtest/gtest.h>

#include <Bitmap.h>

#include "JpegBytes.h"
#include "PictureBounds.h"
#include "PictureBytes.h"
#include "PictureDecoder.h"


static const int64 kLongTime = 1000000000;


static bool
check(const std::string& bytes, CheckedPicture* _picture)
{
	return CheckPicture(reinterpret_cast<const uint8*>(bytes.data()), bytes.size(), _picture);
}


static bool
accepts(const std::string& bytes)
{
	CheckedPicture picture;
	return check(bytes, &picture);
}


/*!	What a decoder is given of it. */
static std::string
handed_on(const std::string& bytes)
{
	CheckedPicture picture;
	EXPECT_TRUE(check(bytes, &picture));
	return std::string(picture.bytes.begin(), picture.bytes.end());
}


/*!	The picture as it would be shown. */
static std::unique_ptr<BBitmap>
decode(const std::string& bytes, int64 maxTime = kLongTime)
{
	CheckedPicture picture;
	if (!check(bytes, &picture))
		return NULL;
	return std::unique_ptr<BBitmap>(DecodePicture(picture, maxTime));
}


static const std::string kHeader = png_chunk("IHDR",
	std::string("\0\0\0\x03\0\0\0\x02\x08\0\0\0\0", 13));
static const std::string kEnd = png_chunk("IEND", "");


/*!	Whole pictures of three by two pixels. */
static std::vector<std::pair<PictureKind, std::string>>
small_pictures()
{
	return {
		{kPngPicture, make_black_png(3, 2)},
		{kJpegPicture, make_gray_jpeg(3, 2, 3)},
		{kGifPicture, make_black_gif(3, 2)},
		{kBmpPicture, make_bmp(3, 2, 24)},
	};
}


TEST(PictureCheckTest, Kind_IsToldByTheFirstBytes)
{
	for (const auto& [kind, bytes] : small_pictures()) {
		SCOPED_TRACE(kind);
		CheckedPicture picture;
		EXPECT_TRUE(check(bytes, &picture));
		EXPECT_EQ(kind, picture.kind);
		EXPECT_EQ(3u, picture.width);
		EXPECT_EQ(2u, picture.height);
		EXPECT_EQ(bytes, handed_on(bytes));
		EXPECT_FALSE(accepts(" " + bytes));
		EXPECT_FALSE(accepts("<svg/>" + bytes));
	}
}


TEST(PictureCheckTest, FileCutAtAnyByte_IsRefusedOrHandedOnAsFarAsItGoes)
{
	for (const auto& [kind, bytes] : small_pictures()) {
		for (size_t length = 0; length < bytes.size(); length++) {
			SCOPED_TRACE(std::to_string(kind) + " of " + std::to_string(length) + " bytes");
			CheckedPicture picture;
			if (!check(bytes.substr(0, length), &picture))
				continue;
			EXPECT_NE(kPngPicture, kind);
			EXPECT_LE(picture.bytes.size(), length + 2);
			const std::unique_ptr<BBitmap> bitmap(DecodePicture(picture, kLongTime));
			if (bitmap != NULL) {
				EXPECT_EQ(BRect(0, 0, 2, 1), bitmap->Bounds());
			}
		}
	}
	// A block that is cut off has fewer bytes.
	const std::string gif = gif_screen(100, 100) + gif_frame(100, 100, 10000, 1);
	const size_t cut = gif.size() - 100;
	const std::string shorter = handed_on(gif.substr(0, cut));
	EXPECT_EQ(shorter, handed_on(shorter));
	EXPECT_NE(nullptr, decode(shorter));

	// What is cut off in the middle of its pixels is shown as far as it goes.
	const std::string jpeg = make_gray_jpeg(64, 64, 1);
	EXPECT_NE(nullptr, decode(jpeg.substr(0, jpeg.size() - 4)));
}


TEST(PictureCheckTest, LargestFileAndEdges_AreTheLast)
{
	EXPECT_TRUE(IsBearablePicture(1, 1));
	EXPECT_TRUE(IsBearablePicture(kMaxPictureEdge, 256));
	EXPECT_FALSE(IsBearablePicture(kMaxPictureEdge + 1, 1));
	EXPECT_FALSE(IsBearablePicture(1, kMaxPictureEdge + 1));
	EXPECT_FALSE(IsBearablePicture(kMaxPictureEdge, 257));
	EXPECT_FALSE(IsBearablePicture(0, 1));
	EXPECT_FALSE(IsBearablePicture(1, 0));
	EXPECT_FALSE(IsBearablePicture(0xffffffff, 0xffffffff));

	const std::string bytes = make_bmp(1, 1, 4);
	EXPECT_TRUE(accepts(bytes + std::string(kMaxPictureFile - bytes.size(), '\0')));
	EXPECT_FALSE(accepts(bytes + std::string(kMaxPictureFile + 1 - bytes.size(), '\0')));
}


TEST(PictureCheckTest, EdgesOfEachKind_AreBounded)
{
	EXPECT_TRUE(accepts(make_black_png(2048, 2048)));
	EXPECT_FALSE(accepts(make_black_png(2048, 2049)));
	EXPECT_TRUE(accepts(make_gray_jpeg(2048, 2048, 2)));
	EXPECT_FALSE(accepts(make_gray_jpeg(2049, 2048, 2)));
	EXPECT_TRUE(accepts(make_black_gif(2048, 2048)));
	EXPECT_FALSE(accepts(make_black_gif(2048, 2049)));
	EXPECT_TRUE(accepts(make_bmp(2048, 2048, 0)));
	EXPECT_FALSE(accepts(make_bmp(2049, 2048, 0)));
	// The screen of a GIF, and the frame on it.
	EXPECT_TRUE(accepts(gif_screen(3, 2) + gif_frame(2, 1, 2) + ";"));
	EXPECT_FALSE(accepts(gif_screen(2049, 2048) + gif_frame(2, 1, 2) + ";"));
	EXPECT_FALSE(accepts(gif_screen(3, 2) + gif_frame(4, 2, 2) + ";"));
	EXPECT_FALSE(accepts(gif_screen(3, 2) + gif_frame(3, 3, 2) + ";"));
	std::string moved = gif_screen(3, 2) + gif_frame(2, 1, 2) + ";";
	moved[20] = 1;
	moved[22] = 1;
	EXPECT_TRUE(accepts(moved));
	moved[20] = 2;
	EXPECT_FALSE(accepts(moved));
	moved[20] = 1;
	moved[22] = 2;
	EXPECT_FALSE(accepts(moved));
	EXPECT_FALSE(accepts(gif_screen(0, 2) + gif_frame(3, 2, 1) + ";"));
	EXPECT_FALSE(accepts(gif_screen(3, 2) + gif_frame(0, 2, 1) + ";"));
	EXPECT_FALSE(accepts(gif_screen(3, 2) + gif_frame(3, 0, 1) + ";"));
	// Headers of a BMP that are no headers.
	std::string bmp = make_bmp(1, 1, 4);
	bmp[14] = 39;
	EXPECT_FALSE(accepts(bmp));
}


TEST(PictureCheckTest, TextsAndProfilesOfAPng_AreLeftOut)
{
	const std::string whole = make_black_png(3, 2);
	std::string bytes = kPngSignature + kHeader;
	for (const char* type : {"zTXt", "iTXt", "tEXt", "iCCP", "eXIf", "acTL", "fcTL", "quIX"})
		bytes += png_chunk(type, std::string(100000, 'x'));
	bytes += whole.substr((kPngSignature + kHeader).size());
	EXPECT_EQ(whole, handed_on(bytes + "more"));

	const std::string colors = png_chunk("PLTE", "rgb") + png_chunk("tRNS", "a")
		+ png_chunk("gAMA", "gama") + png_chunk("sRGB", "s") + png_chunk("pHYs", "pixels...");
	const std::string colored = kPngSignature + kHeader + colors + kEnd;
	EXPECT_EQ(colored, handed_on(colored));
}


TEST(PictureCheckTest, PngWithoutOneHeaderFirst_IsRefused)
{
	EXPECT_TRUE(accepts(kPngSignature + kHeader + kEnd));
	EXPECT_FALSE(accepts(kPngSignature + kEnd));
	EXPECT_FALSE(accepts(kPngSignature + png_chunk("tEXt", "a") + kHeader + kEnd));
	EXPECT_FALSE(accepts(kPngSignature + kHeader + kHeader + kEnd));
	EXPECT_FALSE(
		accepts(kPngSignature + png_chunk("IHDR", std::string("\0\0\0\x01\0\0\0\x01", 8)) + kEnd));
	EXPECT_FALSE(accepts(kPngSignature + kHeader));
}


TEST(PictureCheckTest, PartsOfAFile_AreCounted)
{
	const auto png = [](int32 chunks) {
		std::string bytes = kPngSignature + kHeader;
		for (int32 i = 0; i < chunks - 2; i++)
			bytes += png_chunk("IDAT", "");
		return bytes + kEnd;
	};
	EXPECT_TRUE(accepts(png(kMaxPictureParts)));
	EXPECT_FALSE(accepts(png(kMaxPictureParts + 1)));

	const std::string jpeg = make_gray_jpeg(3, 2, 1);
	const auto with_segments = [&jpeg](int32 count) {
		std::string bytes = jpeg.substr(0, 2);
		for (int32 i = 0; i < count; i++)
			bytes += jpeg_segment(0xe1, "profile");
		return bytes + jpeg.substr(2);
	};
	EXPECT_EQ(jpeg, handed_on(with_segments(4000)));
	EXPECT_FALSE(accepts(with_segments(kMaxPictureParts)));
}


TEST(PictureCheckTest, ScansOfAJpeg_AreCounted)
{
	EXPECT_TRUE(accepts(make_gray_jpeg(100, 100, kMaxPictureScans)));
	EXPECT_FALSE(accepts(make_gray_jpeg(100, 100, kMaxPictureScans + 1)));
	EXPECT_FALSE(accepts(make_gray_jpeg(100, 100, 50000)));
	EXPECT_FALSE(accepts(make_gray_jpeg(100, 100, 0)));
}


TEST(PictureCheckTest, JpegOfAnotherKindOrOfTwoFrames_IsRefused)
{
	const std::string whole = make_gray_jpeg(3, 2, 2);
	const std::string frame = jpeg_frame(0xc2, 3, 2);
	const size_t at = whole.find(frame);
	ASSERT_NE(std::string::npos, at);
	const auto with_frame = [&](const std::string& other) {
		return whole.substr(0, at) + other + whole.substr(at + frame.size());
	};
	EXPECT_TRUE(accepts(with_frame(jpeg_frame(0xc0, 3, 2))));
	for (const uint8 kind : {0xc3, 0xc5, 0xc6, 0xc7, 0xc9, 0xca, 0xcb, 0xcd, 0xce, 0xcf}) {
		SCOPED_TRACE(kind);
		EXPECT_FALSE(accepts(with_frame(jpeg_frame(kind, 3, 2))));
	}
	EXPECT_FALSE(accepts(with_frame(frame + frame)));
	EXPECT_FALSE(accepts(with_frame("")));
	EXPECT_FALSE(accepts(with_frame(jpeg_segment(0xc2, "short"))));
	EXPECT_FALSE(accepts(with_frame(jpeg_frame(0xc2, 3, 0))));
	EXPECT_FALSE(accepts(with_frame(frame + std::string("\xff\xd8\0\x02", 4))));
}


TEST(PictureCheckTest, FurtherFramesOfAGif_AreLeftOut)
{
	const std::string screen = gif_screen(3, 2);
	const std::string transparency("\x21\xf9\x04\x01\0\0\0\0", 8);
	const std::string comment("\x21\xfe\x05hello\0", 9);
	const std::string frame = gif_frame(3, 2, 6);
	std::string bytes = screen + comment + transparency + comment + frame;
	for (int i = 0; i < 1000; i++)
		bytes += transparency + frame;
	EXPECT_EQ(screen + transparency + frame + ";", handed_on(bytes + ";"));
	EXPECT_FALSE(accepts(screen + ";"));
	EXPECT_FALSE(accepts(screen + comment));
}


// A decoder would go on unpacking what it has no room for.
TEST(PictureCheckTest, PixelsThatAGifHasNoRoomFor_AreLeftOut)
{
	const std::string bytes = gif_screen(3, 2) + gif_frame(3, 2, 1000000000) + ";";
	EXPECT_GT(bytes.size(), 300000u);
	EXPECT_LT(handed_on(bytes).size(), 400u);
	EXPECT_NE(nullptr, decode(bytes));

	for (const uint64 longest : {1, 2, 3, 100, 4096}) {
		SCOPED_TRACE(longest);
		const std::string whole = gif_screen(500, 400) + gif_frame(500, 400, 200000, longest) + ";";
		EXPECT_EQ(whole, handed_on(whole));
	}
}


TEST(PictureCheckTest, DecoderThatHasUsedUpItsTime_GivesUp)
{
	for (const auto& [kind, bytes] : small_pictures()) {
		SCOPED_TRACE(kind);
		EXPECT_NE(nullptr, decode(bytes));
		EXPECT_EQ(nullptr, decode(bytes, 0));
	}
}


// The toolkit would find out by itself what it is.
TEST(PictureCheckTest, PictureUnderAnotherKind_IsNotDecoded)
{
	for (const auto& [kind, bytes] : small_pictures()) {
		CheckedPicture picture;
		ASSERT_TRUE(check(bytes, &picture));
		for (const PictureKind other :
			{kNoPicture, kPngPicture, kJpegPicture, kGifPicture, kBmpPicture}) {
			SCOPED_TRACE(std::to_string(kind) + " as " + std::to_string(other));
			picture.kind = other;
			const std::unique_ptr<BBitmap> bitmap(DecodePicture(picture, kLongTime));
			EXPECT_EQ(other == kind, bitmap != NULL);
		}
	}
}
