/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PICTURE_BYTES_H
#define PICTURE_BYTES_H


#include <string>

#include <SupportDefs.h>


// Picture files, built byte by byte.

/*!	A BMP file of 24 bits per pixel: what its header announces, and as many bytes of pixels as asked
	for: 10, 11 and so on.
	\param height Below zero when the rows stand from the top to the bottom.
*/
std::string make_bmp(int32 width, int32 height, size_t pixelBytes);

// Whole pictures of one black, or dark, color, which take a hundredth of a bit per pixel and less.
std::string make_black_bmp(int32 width, int32 height);
std::string make_black_png(uint32 width, uint32 height);
std::string make_black_gif(uint16 width, uint16 height);
// A PNG of 16 bits for each color and the transparency.
std::string make_deep_png(uint32 width, uint32 height);

// Pieces of them. The frame of a GIF says which size it has, and packs any number of pixels, so many
// in a code at most.
extern const std::string kPngSignature;
std::string png_chunk(const std::string& type, const std::string& data);
std::string gif_screen(uint16 width, uint16 height);
std::string gif_frame(uint16 width, uint16 height, uint64 pixels, uint64 longest = 4096);


#endif // PICTURE_BYTES_H
