/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Rect.h>

#include <algorithm>


/*!	An empty rectangle, which is not valid. */
BRect::BRect()
	: left(0),
	  top(0),
	  right(-1),
	  bottom(-1)
{
}


BRect::BRect(float rectLeft, float rectTop, float rectRight, float rectBottom)
	: left(rectLeft),
	  top(rectTop),
	  right(rectRight),
	  bottom(rectBottom)
{
}


bool
BRect::Contains(BPoint point) const
{
	return point.x >= left && point.x <= right && point.y >= top && point.y <= bottom;
}


bool
BRect::Contains(BRect rect) const
{
	return rect.left >= left && rect.right <= right && rect.top >= top && rect.bottom <= bottom;
}


bool
BRect::Intersects(BRect rect) const
{
	return (*this & rect).IsValid();
}


BRect
BRect::operator&(BRect other) const
{
	return BRect(std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
		std::min(bottom, other.bottom));
}


BRect
BRect::operator|(BRect other) const
{
	return BRect(std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
		std::max(bottom, other.bottom));
}


bool
BRect::operator==(BRect other) const
{
	return left == other.left && top == other.top && right == other.right && bottom == other.bottom;
}
