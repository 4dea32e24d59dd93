/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SIZE_H
#define SIZE_H


#include <SupportDefs.h>


#define B_SIZE_UNSET (-2.0f)
#define B_SIZE_UNLIMITED (1024.0f * 1024.0f * 1024.0f)


/*!	A size. Like the width of a BRect it is one less than the pixels that it covers. */
class BSize {
public:
	float width;
	float height;

	BSize()
		: width(B_SIZE_UNSET),
		  height(B_SIZE_UNSET)
	{
	}
	BSize(float sizeWidth, float sizeHeight)
		: width(sizeWidth),
		  height(sizeHeight)
	{
	}

	bool IsWidthSet() const { return width != B_SIZE_UNSET; }
	bool IsHeightSet() const { return height != B_SIZE_UNSET; }

	bool operator==(const BSize& other) const
	{
		return width == other.width && height == other.height;
	}
};


#endif // SIZE_H
