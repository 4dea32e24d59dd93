/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "JpegBytes.h"


static const uint8 kProgressive = 0xc2;
static const uint8 kHuffmanTable = 0xc4;
static const uint8 kScan = 0xda;
static const uint8 kQuantizationTable = 0xdb;


/*!	A table of one code of one bit, 0, which stands for this. */
static std::string
table(uint8 kind, uint8 symbol)
{
	std::string content(1, static_cast<char>(kind));
	content += '\x01';
	content += std::string(15, '\0');
	return jpeg_segment(kHuffmanTable, content + static_cast<char>(symbol));
}


/*!	A scan of the one color.
	\param first, last Of the 64 frequencies.
	\param bits Which of their bits: those before and those from now on.
	\param codes Its pixels.
*/
static std::string
scan(uint8 first, uint8 last, uint8 bits, const std::string& codes)
{
	const char content[] = {1, 1, 0, static_cast<char>(first), static_cast<char>(last),
		static_cast<char>(bits)};
	return jpeg_segment(kScan, std::string(content, sizeof(content))) + codes;
}


std::string
jpeg_segment(uint8 marker, const std::string& content)
{
	const size_t size = content.size() + 2;
	std::string bytes("\xff");
	bytes += static_cast<char>(marker);
	bytes += static_cast<char>(size >> 8);
	bytes += static_cast<char>(size);
	return bytes + content;
}


std::string
jpeg_frame(uint8 marker, uint16 width, uint16 height)
{
	// The bits of a color; one color, whose number is 1, in full size and with the first table.
	std::string content("\x08");
	for (const uint16 edge : {height, width}) {
		content += static_cast<char>(edge >> 8);
		content += static_cast<char>(edge);
	}
	return jpeg_segment(marker, content + std::string("\x01\x01\x11\x00", 4));
}


std::string
make_gray_jpeg(uint16 width, uint16 height, int32 scans)
{
	std::string bytes("\xff\xd8");
	bytes += jpeg_segment(kQuantizationTable, std::string(1, '\0') + std::string(64, '\x01'));
	bytes += jpeg_frame(kProgressive, width, height);
	// Every block is as light as the one before, and as flat; a code says so for one of them, or,
	// with 14 more bits, for 16384.
	bytes += table(0, 0) + table(0x10, 0xe0);
	const size_t blocks = static_cast<size_t>((width + 7) / 8)
		* static_cast<size_t>((height + 7) / 8);
	for (int32 i = 0; i < scans; i++) {
		if (i == 0)
			bytes += scan(0, 0, 0, std::string(blocks / 8 + 1, '\0'));
		else
			bytes += scan(1, 63, i == 1 ? 1 : 0x10, std::string((blocks / 16384 + 1) * 2, '\0'));
	}
	return bytes + "\xff\xd9";
}
