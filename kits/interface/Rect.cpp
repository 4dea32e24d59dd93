/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Rect.h>

#include <algorithm>
#include <cmath>


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


BRect::BRect(BPoint leftTop, BPoint rightBottom)
	: left(leftTop.x),
	  top(leftTop.y),
	  right(rightBottom.x),
	  bottom(rightBottom.y)
{
}


BRect::BRect(BPoint leftTop, BSize size)
	: left(leftTop.x),
	  top(leftTop.y),
	  right(leftTop.x + size.width),
	  bottom(leftTop.y + size.height)
{
}


void
BRect::Set(float newLeft, float newTop, float newRight, float newBottom)
{
	left = newLeft;
	top = newTop;
	right = newRight;
	bottom = newBottom;
}


int32
BRect::IntegerWidth() const
{
	return int32(std::ceil(Width()));
}


int32
BRect::IntegerHeight() const
{
	return int32(std::ceil(Height()));
}


void
BRect::InsetBy(float dx, float dy)
{
	Set(left + dx, top + dy, right - dx, bottom - dy);
}


BRect
BRect::InsetByCopy(float dx, float dy) const
{
	BRect copy(*this);
	copy.InsetBy(dx, dy);
	return copy;
}


void
BRect::OffsetBy(float dx, float dy)
{
	Set(left + dx, top + dy, right + dx, bottom + dy);
}


BRect
BRect::OffsetByCopy(float dx, float dy) const
{
	BRect copy(*this);
	copy.OffsetBy(dx, dy);
	return copy;
}


void
BRect::OffsetTo(float x, float y)
{
	OffsetBy(x - left, y - top);
}


BRect
BRect::OffsetToCopy(float x, float y) const
{
	BRect copy(*this);
	copy.OffsetTo(x, y);
	return copy;
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
