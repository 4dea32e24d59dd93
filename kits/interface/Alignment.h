/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ALIGNMENT_H
#define ALIGNMENT_H


#include <SupportDefs.h>


enum alignment {
	B_ALIGN_LEFT,
	B_ALIGN_RIGHT,
	B_ALIGN_CENTER,

	B_ALIGN_HORIZONTAL_CENTER = B_ALIGN_CENTER,
	B_ALIGN_HORIZONTAL_UNSET = -1,
	B_ALIGN_USE_FULL_WIDTH = -2
};

enum vertical_alignment {
	B_ALIGN_TOP = 0x10,
	B_ALIGN_MIDDLE = 0x20,
	B_ALIGN_BOTTOM = 0x30,

	B_ALIGN_VERTICAL_CENTER = B_ALIGN_MIDDLE,
	B_ALIGN_VERTICAL_UNSET = -1,
	B_ALIGN_NO_VERTICAL = B_ALIGN_VERTICAL_UNSET,
	B_ALIGN_USE_FULL_HEIGHT = -2
};


/*!	Where a view stands in a place that is larger than its maximum size. */
class BAlignment {
public:
	alignment horizontal;
	vertical_alignment vertical;

	BAlignment()
		: horizontal(B_ALIGN_HORIZONTAL_UNSET),
		  vertical(B_ALIGN_VERTICAL_UNSET)
	{
	}
	BAlignment(alignment horizontalAlignment, vertical_alignment verticalAlignment)
		: horizontal(horizontalAlignment),
		  vertical(verticalAlignment)
	{
	}

	alignment Horizontal() const { return horizontal; }
	vertical_alignment Vertical() const { return vertical; }

	bool operator==(const BAlignment& other) const
	{
		return horizontal == other.horizontal && vertical == other.vertical;
	}
	bool operator!=(const BAlignment& other) const { return !(*this == other); }
};


#endif // ALIGNMENT_H
