/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <GeometryConversion.h>

#include <cmath>

#include <QWidget>

#include <Font.h>
#include <InterfaceDefs.h>


static int
pixels_of_length(float length)
{
	if (length >= static_cast<float>(QWIDGETSIZE_MAX))
		return QWIDGETSIZE_MAX;
	return std::max(0, static_cast<int>(std::ceil(length)) + 1);
}


static float
length_of_pixels(int pixels)
{
	return pixels >= QWIDGETSIZE_MAX ? B_SIZE_UNLIMITED : static_cast<float>(pixels - 1);
}


BRect
rect_from_toolkit(const QRect& rect)
{
	return BRect(static_cast<float>(rect.left()), static_cast<float>(rect.top()),
		static_cast<float>(rect.left() + rect.width() - 1),
		static_cast<float>(rect.top() + rect.height() - 1));
}


/*!	The whole pixels that the rectangle covers, its right and bottom edge included. */
QRect
rect_to_toolkit(BRect rect)
{
	const int left = static_cast<int>(std::floor(rect.left + 0.5f));
	const int top = static_cast<int>(std::floor(rect.top + 0.5f));
	const int right = static_cast<int>(std::floor(rect.right + 0.5f));
	const int bottom = static_cast<int>(std::floor(rect.bottom + 0.5f));
	return QRect(left, top, right - left + 1, bottom - top + 1);
}


BPoint
point_from_toolkit(const QPointF& point)
{
	return BPoint(static_cast<float>(point.x()), static_cast<float>(point.y()));
}


/*!	The nearest whole pixel. */
QPointF
point_to_toolkit(BPoint point)
{
	return QPointF(std::floor(point.x + 0.5f), std::floor(point.y + 0.5f));
}


BSize
size_from_toolkit(const QSize& size)
{
	return BSize(length_of_pixels(size.width()), length_of_pixels(size.height()));
}


QSize
size_to_toolkit(BSize size)
{
	return QSize(pixels_of_length(size.width), pixels_of_length(size.height));
}


BSize
compose_size(BSize size, BSize explicitSize)
{
	if (explicitSize.IsWidthSet())
		size.width = explicitSize.width;
	if (explicitSize.IsHeightSet())
		size.height = explicitSize.height;
	return size;
}


float
resolve_spacing(float spacing)
{
	const float standard = std::ceil(be_plain_font->Size() * 0.85f);
	switch (static_cast<int>(spacing)) {
		case B_USE_DEFAULT_SPACING:
		case B_USE_ITEM_SPACING:
		case B_USE_WINDOW_SPACING:
			return standard;
		case B_USE_HALF_ITEM_SPACING:
			return std::ceil(standard * 0.5f);
		case B_USE_SMALL_SPACING:
			return std::ceil(standard * 0.7f);
		case B_USE_CORNER_SPACING:
			return std::ceil(standard * 1.272f);
		case B_USE_BIG_SPACING:
			return std::ceil(standard * 1.8f);
		case B_USE_BORDER_SPACING:
			return 1;
		default:
			return spacing;
	}
}
