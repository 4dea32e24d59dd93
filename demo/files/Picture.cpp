/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Picture.h"

#include <algorithm>
#include <cstddef>


namespace demo {


static const size_t kHeaderSize = 54;
static const int32_t kBytesPerPixel = 3;


// The format counts with the least significant byte first.
static void
append_little(std::string& bytes, uint32_t value, int size)
{
	for (int i = 0; i < size; i++)
		bytes.push_back(static_cast<char>(value >> (8 * i)));
}


/*!	Rows are padded to whole words. */
static int64_t
row_size(int32_t width)
{
	return (static_cast<int64_t>(width) * kBytesPerPixel + 3) / 4 * 4;
}


static std::string
header(int32_t width, int32_t height)
{
	auto dataSize = static_cast<uint32_t>(row_size(width) * height);
	std::string bytes = "BM";
	append_little(bytes, static_cast<uint32_t>(kHeaderSize) + dataSize, 4);
	append_little(bytes, 0, 4);
	append_little(bytes, kHeaderSize, 4);
	append_little(bytes, 40, 4);
	append_little(bytes, static_cast<uint32_t>(width), 4);
	// A negative height means that the rows stand from top to bottom.
	append_little(bytes, static_cast<uint32_t>(-height), 4);
	append_little(bytes, 1, 2);
	append_little(bytes, kBytesPerPixel * 8, 2);
	append_little(bytes, 0, 4);
	append_little(bytes, dataSize, 4);
	append_little(bytes, 2835, 4);
	append_little(bytes, 2835, 4);
	append_little(bytes, 0, 4);
	append_little(bytes, 0, 4);
	return bytes;
}


static void
append_pixel(std::string& bytes, int32_t red, int32_t green, int32_t blue)
{
	for (int32_t value : {blue, green, red})
		bytes.push_back(static_cast<char>(std::clamp(value, 0, 255)));
}


/*!	Scatters the stars without a pattern, and always the same ones. */
static bool
is_star(int32_t x, int32_t y)
{
	uint32_t hash = static_cast<uint32_t>(x) * 374761393 + static_cast<uint32_t>(y) * 668265263;
	hash = (hash ^ (hash >> 13)) * 1274126177;
	return (hash ^ (hash >> 16)) % 250 == 0;
}


/*!	A night sky over water, with stars, and a lantern whose light falls on both. */
std::string
night_picture(int32_t width, int32_t height)
{
	std::string bytes = header(width, height);
	int32_t lanternX = width / 5;
	int32_t lanternY = height * 2 / 5;
	int32_t horizon = height * 2 / 3;
	for (int32_t y = 0; y < height; y++) {
		for (int32_t x = 0; x < width; x++) {
			// The lantern is mirrored in the water, and the mirror wavers.
			int32_t seenY = y < horizon ? y : 2 * horizon - y;
			int32_t waver = y < horizon ? 0 : (y * 7 % 5) - 2;
			int32_t dx = x - lanternX + waver;
			int32_t dy = seenY - lanternY;
			int32_t distance = dx * dx + dy * dy;
			int32_t reach = height * height;
			int32_t glow = reach * 25 / (reach / 10 + distance * 8);
			bool isStar = y < horizon && glow < 30 && is_star(x, y);
			int32_t sky = 70 * y / height;
			if (isStar)
				append_pixel(bytes, 230, 230, 255);
			else if (y < horizon)
				append_pixel(bytes, 20 + sky / 2 + glow, 24 + sky + glow * 3 / 4,
					60 + sky + glow / 4);
			else
				append_pixel(bytes, 10 + glow / 2, 20 + sky / 3 + glow / 3,
					50 + sky / 2 + glow / 8);
		}
		bytes.resize(kHeaderSize + static_cast<size_t>(row_size(width) * (y + 1)));
	}
	return bytes;
}


/*!	All of one color. */
std::string
plain_picture(int32_t width, int32_t height, uint8_t red, uint8_t green, uint8_t blue)
{
	std::string bytes = header(width, height);
	for (int32_t y = 0; y < height; y++) {
		for (int32_t x = 0; x < width; x++)
			append_pixel(bytes, red, green, blue);
		bytes.resize(kHeaderSize + static_cast<size_t>(row_size(width) * (y + 1)));
	}
	return bytes;
}


/*!	Only the header, and not a single one of the pixels that it announces. */
std::string
claim_of_a_picture(int32_t width, int32_t height)
{
	return header(width, height);
}


} // namespace demo
