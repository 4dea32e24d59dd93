/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_STYLE_H
#define TEXT_STYLE_H


#include <Font.h>
#include <GraphicsDefs.h>


/*!	How a part of a text looks. */
struct TextStyle {
	BFont font;
	rgb_color color;

	bool operator==(const TextStyle& other) const
	{
		return font == other.font && color == other.color;
	}
};


#endif // TEXT_STYLE_H
