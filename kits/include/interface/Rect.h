/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef RECT_H
#define RECT_H


#include <Point.h>
#include <Size.h>


/*!	A rectangle of pixels, its right and bottom edges included: (0, 0, 15, 15) covers 16 x 16, and
	its width is 15.
*/
class BRect {
public:
	float left;
	float top;
	float right;
	float bottom;

	BRect();
	BRect(float left, float top, float right, float bottom);
	BRect(BPoint leftTop, BPoint rightBottom) = delete;
	BRect(BPoint leftTop, BSize size) = delete;
	explicit BRect(float side) = delete;
	BRect(float width, float height) = delete;

	BPoint LeftTop() const { return BPoint(left, top); }
	BPoint RightTop() const { return BPoint(right, top); }
	BPoint LeftBottom() const { return BPoint(left, bottom); }

	float Width() const { return right - left; }
	float Height() const { return bottom - top; }
	bool IsValid() const { return left <= right && top <= bottom; }

	bool Contains(BPoint point) const;
	bool Contains(BRect rect) const;
	bool Intersects(BRect rect) const;

	BRect operator&(BRect other) const;
	BRect operator|(BRect other) const;
	bool operator==(BRect other) const;
};


#endif // RECT_H
