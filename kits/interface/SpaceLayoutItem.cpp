/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <SpaceLayoutItem.h>


BSpaceLayoutItem::BSpaceLayoutItem(BSize minSize, BSize maxSize, BSize preferredSize)
	: fMinSize(minSize),
	  fMaxSize(maxSize),
	  fPreferredSize(preferredSize)
{
}


/*!	Takes what is left over, in both directions. */
BSpaceLayoutItem*
BSpaceLayoutItem::CreateGlue()
{
	return new BSpaceLayoutItem(BSize(-1, -1), BSize(B_SIZE_UNLIMITED, B_SIZE_UNLIMITED),
		BSize(-1, -1));
}
