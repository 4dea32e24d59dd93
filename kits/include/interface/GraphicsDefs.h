/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef GRAPHICS_DEFS_H
#define GRAPHICS_DEFS_H


#include <SupportDefs.h>


/*!	Eight by eight pixels of the high and the low color. Only the two plain ones are there. */
// NOLINTNEXTLINE(readability-identifier-naming): Haiku's name
struct pattern {
	uint8 data[8];
};

extern const pattern B_SOLID_HIGH;
extern const pattern B_SOLID_LOW;


/*!	A color; an alpha of 255 is opaque. It has no constructor: what a list in braces leaves out is
	0, alpha too.
*/
// NOLINTNEXTLINE(readability-identifier-naming): Haiku's name
struct rgb_color {
	uint8 red;
	uint8 green;
	uint8 blue;
	uint8 alpha;

	bool operator==(const rgb_color& other) const
	{
		return red == other.red && green == other.green && blue == other.blue
			&& alpha == other.alpha;
	}
};

inline rgb_color
make_color(uint8 red, uint8 green, uint8 blue, uint8 alpha = 255)
{
	const rgb_color color = {red, green, blue, alpha};
	return color;
}


// The pixels of a bitmap: blue, green, red and alpha, a byte each in this order.
enum color_space { B_NO_COLOR_SPACE = 0x0000, B_RGB32 = 0x0008, B_RGBA32 = 0x2008 };

enum drawing_mode { B_OP_COPY = 0, B_OP_ALPHA = 10 };

enum source_alpha { B_PIXEL_ALPHA = 0 };

enum alpha_function { B_ALPHA_OVERLAY = 0 };


#endif // GRAPHICS_DEFS_H
