/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef RECT_H
#define RECT_H


#include <Point.h>
#include <Size.h>


/*!	A rectangle of pixels, its right and bottom edges included: (0, 0, 15, 15) covers 16 x 16, and its width is 15. */
class BRect {
public:
	float left;
	float top;
	float right;
	float bottom;

	BRect();
	BRect(float left, float top, float right, float bottom);
	BRect(BPoint leftTop, BPoint rightBottom);
	BRect(BPoint leftTop, BSize size);

	void Set(float newLeft, float newTop, float newRight, float newBottom);

	BPoint LeftTop() const { return BPoint(left, top); }
	BPoint RightTop() const { return BPoint(right, top); }
	BPoint LeftBottom() const { return BPoint(left, bottom); }
	BPoint RightBottom() const { return BPoint(right, bottom); }

	float Width() const { return right - left; }
	float Height() const { return bottom - top; }
	int32 IntegerWidth() const;
	int32 IntegerHeight() const;
	BSize Size() const { return BSize(Width(), Height()); }
	bool IsValid() const { return left <= right && top <= bottom; }

	void InsetBy(float dx, float dy);
	BRect InsetByCopy(float dx, float dy) const;
	void OffsetBy(float dx, float dy);
	BRect OffsetByCopy(float dx, float dy) const;
	void OffsetTo(float x, float y);
	BRect OffsetToCopy(float x, float y) const;

	bool Contains(BPoint point) const;
	bool Contains(BRect rect) const;
	bool Intersects(BRect rect) const;

	BRect operator&(BRect other) const;
	BRect operator|(BRect other) const;
	bool operator==(BRect other) const;
	bool operator!=(BRect other) const { return !(*this == other); }
};


#endif // RECT_H
