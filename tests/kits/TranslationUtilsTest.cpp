/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cstring>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <Bitmap.h>
#include <DataIO.h>
#include <TranslationUtils.h>

#include "TemporaryFolder.h"


namespace {


void
append_number(std::string& bytes, uint32 value, int count)
{
	for (int i = 0; i < count; i++)
		bytes.push_back(char(value >> (8 * i)));
}


/*!	A BMP file of 24 bits per pixel: what its header announces, and as many bytes of pixels as asked for. */
std::string
make_bmp(int32 width, int32 height, size_t pixelBytes)
{
	std::string bytes("BM");
	append_number(bytes, uint32(54 + pixelBytes), 4); // size of the file
	append_number(bytes, 0, 4); // reserved
	append_number(bytes, 54, 4); // where the pixels start
	append_number(bytes, 40, 4); // size of the second header
	append_number(bytes, uint32(width), 4);
	append_number(bytes, uint32(height), 4);
	append_number(bytes, 1, 2); // planes
	append_number(bytes, 24, 2); // bits per pixel
	append_number(bytes, 0, 4); // not compressed
	append_number(bytes, uint32(pixelBytes), 4);
	append_number(bytes, 2835, 4); // pixels per meter
	append_number(bytes, 2835, 4);
	append_number(bytes, 0, 4); // colors
	append_number(bytes, 0, 4);
	for (size_t i = 0; i < pixelBytes; i++)
		bytes.push_back(char(10 + i));
	return bytes;
}


std::unique_ptr<BBitmap>
decode(const std::string& bytes)
{
	BMemoryIO stream(static_cast<const void*>(bytes.data()), bytes.size());
	return std::unique_ptr<BBitmap>(BTranslationUtils::GetBitmap(&stream));
}


} // namespace


TEST(TranslationUtilsTest, Picture_IsDecodedIntoPixels)
{
	// Two pixels of blue, green and red, and two bytes to fill the row.
	const std::unique_ptr<BBitmap> bitmap = decode(make_bmp(2, 1, 8));
	ASSERT_NE(nullptr, bitmap);
	EXPECT_EQ(BRect(0, 0, 1, 0), bitmap->Bounds());
	EXPECT_EQ(B_RGBA32, bitmap->ColorSpace());
	const uint8 expected[8] = {10, 11, 12, 255, 13, 14, 15, 255};
	EXPECT_EQ(0, memcmp(expected, bitmap->Bits(), sizeof(expected)));
}


TEST(TranslationUtilsTest, WhatIsNoPicture_GivesNothing)
{
	EXPECT_EQ(nullptr, decode(""));
	EXPECT_EQ(nullptr, decode("This is no picture at all."));
	EXPECT_EQ(nullptr, decode(std::string(5000, '\xff')));
	EXPECT_EQ(NULL, BTranslationUtils::GetBitmap(NULL));
}


TEST(TranslationUtilsTest, CutHeader_GivesNothing)
{
	const std::string whole = make_bmp(2, 1, 8);
	for (size_t length = 0; length < 54; length++) {
		SCOPED_TRACE(length);
		EXPECT_EQ(nullptr, decode(whole.substr(0, length)));
	}
}


TEST(TranslationUtilsTest, PictureOfMoreThan64MebibytesOfPixels_IsRefused)
{
	EXPECT_EQ(nullptr, decode(make_bmp(4097, 4096, 0)));
	EXPECT_EQ(nullptr, decode(make_bmp(65535, 65535, 100)));
	EXPECT_EQ(nullptr, decode(make_bmp(0x7fffffff, 0x7fffffff, 100)));
}


TEST(TranslationUtilsTest, File_IsReadByItsBytesWhateverItsName)
{
	TemporaryFolder folder;
	folder.AddFile("icon \xff.png", make_bmp(2, 1, 8));

	const std::unique_ptr<BBitmap> bitmap(
		BTranslationUtils::GetBitmapFile(folder.PathOf("icon \xff.png").c_str()));
	ASSERT_NE(nullptr, bitmap);
	EXPECT_EQ(BRect(0, 0, 1, 0), bitmap->Bounds());
}


TEST(TranslationUtilsTest, MissingFile_GivesNothing)
{
	EXPECT_EQ(NULL, BTranslationUtils::GetBitmapFile("/nowhere/at/all.png"));
	EXPECT_EQ(NULL, BTranslationUtils::GetBitmapFile("/"));
	EXPECT_EQ(NULL, BTranslationUtils::GetBitmapFile(NULL));
}
