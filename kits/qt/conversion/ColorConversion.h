/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef COLOR_CONVERSION_H
#define COLOR_CONVERSION_H


#include <QColor>

#include <GraphicsDefs.h>


inline QColor
color_to_toolkit(rgb_color color)
{
	return QColor(color.red, color.green, color.blue, color.alpha);
}


inline rgb_color
color_from_toolkit(const QColor& color)
{
	return make_color(static_cast<uint8>(color.red()), static_cast<uint8>(color.green()),
		static_cast<uint8>(color.blue()), static_cast<uint8>(color.alpha()));
}


#endif // COLOR_CONVERSION_H
