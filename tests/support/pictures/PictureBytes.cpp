/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "PictureBytes.h"

#include <algorithm>


const std::string kPngSignature("\x89PNG\r\n\x1a\n");

// Forgets the codes that were made since.
static const uint32 kGifClear = 256;


/*!	Appends numbers of any count of bits, the lowest bit first, as deflate and GIF want them. */
class BitWriter {
public:
	explicit BitWriter(std::string& bytes)
		: fBytes(bytes),
		  fBits(0),
		  fCount(0)
	{
	}

	void Append(uint32 bits, int count)
	{
		fBits |= static_cast<uint64>(bits) << fCount;
		for (fCount += count; fCount >= 8; fCount -= 8) {
			fBytes.push_back(static_cast<char>(fBits));
			fBits >>= 8;
		}
	}

	void Finish()
	{
		if (fCount > 0)
			Append(0, 8 - fCount);
	}

private:
	std::string& fBytes;
	uint64 fBits;
	int fCount;
};


static void
append_number(std::string& bytes, uint32 value, int count)
{
	for (int i = 0; i < count; i++)
		bytes.push_back(static_cast<char>(value >> (8 * i)));
}


static void
append_big_endian(std::string& bytes, uint32 value)
{
	for (int shift = 24; shift >= 0; shift -= 8)
		bytes.push_back(static_cast<char>(value >> shift));
}


/*!	\param colors Of the table between the headers and the pixels. */
static std::string
bmp_headers(int32 width, int32 height, uint16 bitsPerPixel, uint32 compression, uint32 pixelBytes,
	uint32 colors)
{
	const uint32 start = 54 + 4 * colors;
	std::string bytes("BM");
	append_number(bytes, start + pixelBytes, 4); // size of the file
	append_number(bytes, 0, 4); // reserved
	append_number(bytes, start, 4); // where the pixels start
	append_number(bytes, 40, 4); // size of the second header
	append_number(bytes, static_cast<uint32>(width), 4);
	append_number(bytes, static_cast<uint32>(height), 4);
	append_number(bytes, 1, 2); // planes
	append_number(bytes, bitsPerPixel, 2);
	append_number(bytes, compression, 4);
	append_number(bytes, pixelBytes, 4);
	append_number(bytes, 2835, 4); // pixels per meter
	append_number(bytes, 2835, 4);
	append_number(bytes, colors, 4);
	append_number(bytes, 0, 4); // important colors: all
	return bytes;
}


std::string
png_chunk(const std::string& type, const std::string& data)
{
	std::string bytes;
	append_big_endian(bytes, static_cast<uint32>(data.size()));
	const std::string checked = type + data;
	uint32 sum = 0xffffffff;
	for (const char byte : checked) {
		sum ^= static_cast<uint8>(byte);
		for (int i = 0; i < 8; i++)
			sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xedb88320 : 0);
	}
	bytes += checked;
	append_big_endian(bytes, ~sum);
	return bytes;
}


/*!	A zlib stream of at least one zero byte, in codes of 13 bits for 258 of them. */
static std::string
deflate_zeros(uint64 count)
{
	std::string bytes("\x78\xda");
	BitWriter writer(bytes);
	writer.Append(1, 1); // the last block
	writer.Append(1, 2); // with the codes that are fixed
	writer.Append(0x0c, 8); // one zero byte; codes have their highest bit first
	for (uint64 left = count - 1; left > 0;) {
		if (left >= 258) {
			writer.Append(0xa3, 8); // repeat for 258 bytes
			writer.Append(0, 5); // what stands one byte before
			left -= 258;
		} else {
			writer.Append(0x0c, 8);
			left--;
		}
	}
	writer.Append(0, 7); // the end of the block
	writer.Finish();
	append_big_endian(bytes, static_cast<uint32>(count % 65521) << 16 | 1); // checksum
	return bytes;
}


/*!	That many times color 0, as GIF packs it: the code 256 + n, where it is known, stands for n of
	them.
	\param longest No code stands for more than so many.
*/
static std::string
compress_run(uint64 count, uint64 longest)
{
	std::string bytes;
	BitWriter writer(bytes);
	uint32 next = kGifClear + 2; // the code that becomes known with the next one
	auto append = [&](uint32 code) {
		int bits = 9;
		while (bits < 12 && (next >> bits) != 0)
			bits++;
		writer.Append(code, bits);
	};

	append(kGifClear);
	while (count > 0) {
		writer.Append(0, 9);
		count--;
		for (next = kGifClear + 2; next < 4096 && count > 0; next++) {
			// A code may be used as it becomes known: one more than the code before.
			const uint64 run = std::min({static_cast<uint64>(next - kGifClear), longest, count});
			append(run > 1 ? kGifClear + static_cast<uint32>(run) : 0);
			count -= run;
		}
		if (count > 0)
			append(kGifClear);
	}
	append(kGifClear + 1); // the end
	writer.Finish();
	return bytes;
}


std::string
make_bmp(int32 width, int32 height, size_t pixelBytes)
{
	std::string bytes = bmp_headers(width, height, 24, 0, static_cast<uint32>(pixelBytes), 0);
	for (size_t i = 0; i < pixelBytes; i++)
		bytes.push_back(static_cast<char>(10 + i));
	return bytes;
}


std::string
make_black_bmp(int32 width, int32 height)
{
	std::string pixels;
	for (int32 row = 0; row < height; row++) {
		for (int32 left = width; left > 0; left -= 255) {
			pixels.push_back(
				static_cast<char>(std::min(left, static_cast<int32>(255)))); // so many pixels
			pixels.push_back(0); // of the first color
		}
		append_number(pixels, 0, 2); // the end of the row
	}
	append_number(pixels, 0x0100, 2); // the end

	std::string bytes = bmp_headers(width, height, 8, 1, static_cast<uint32>(pixels.size()), 1);
	append_number(bytes, 0, 4); // the color
	return bytes + pixels;
}


/*!	\param bits Of a color.
	\param kind Of the colors: 0 for gray, 6 for three colors and alpha.
	\param pixelSize In bytes.
*/
static std::string
make_png(uint32 width, uint32 height, char bits, char kind, uint32 pixelSize)
{
	std::string header;
	append_big_endian(header, width);
	append_big_endian(header, height);
	// Without alternatives.
	header += {bits, kind, 0, 0, 0};

	const uint64 size = static_cast<uint64>(height) * (static_cast<uint64>(width) * pixelSize + 1);
	return kPngSignature + png_chunk("IHDR", header) + png_chunk("IDAT", deflate_zeros(size))
		+ png_chunk("IEND", "");
}


std::string
make_black_png(uint32 width, uint32 height)
{
	return make_png(width, height, 8, 0, 1);
}


std::string
make_deep_png(uint32 width, uint32 height)
{
	return make_png(width, height, 16, 6, 8);
}


std::string
make_black_gif(uint16 width, uint16 height)
{
	return gif_screen(width, height) + gif_frame(width, height, static_cast<uint64>(width) * height)
		+ ";";
}


std::string
gif_screen(uint16 width, uint16 height)
{
	std::string bytes("GIF89a");
	append_number(bytes, width, 2);
	append_number(bytes, height, 2);
	append_number(bytes, 0x80, 3); // a table of two colors
	append_number(bytes, 0, 3);
	append_number(bytes, 0, 3);
	return bytes;
}


std::string
gif_frame(uint16 width, uint16 height, uint64 pixels, uint64 longest)
{
	const std::string codes = compress_run(pixels, longest);
	std::string bytes(",");
	append_number(bytes, 0, 4); // at the left and at the top
	append_number(bytes, width, 2);
	append_number(bytes, height, 2);
	append_number(bytes, 0, 1); // without colors of its own
	append_number(bytes, 8, 1); // bits of a color
	for (size_t i = 0; i < codes.size(); i += 255) {
		const std::string block = codes.substr(i, 255);
		append_number(bytes, static_cast<uint32>(block.size()), 1);
		bytes += block;
	}
	append_number(bytes, 0, 1);
	return bytes;
}
