/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef POINT_H
#define POINT_H


#include <SupportDefs.h>


/*!	A place, in pixels. */
class BPoint {
public:
	float x;
	float y;

	BPoint()
		: x(0),
		  y(0)
	{
	}
	BPoint(float pointX, float pointY)
		: x(pointX),
		  y(pointY)
	{
	}

	BPoint operator+(const BPoint& other) const { return BPoint(x + other.x, y + other.y); }
	bool operator==(const BPoint& other) const { return x == other.x && y == other.y; }
};


#endif // POINT_H
