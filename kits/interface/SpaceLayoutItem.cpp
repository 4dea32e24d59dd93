/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <SpaceLayoutItem.h>


/*!	The alignment of nothing changes nothing. */
BSpaceLayoutItem::BSpaceLayoutItem(BSize minSize, BSize maxSize, BSize preferredSize,
	BAlignment /*alignment*/)
	: fMinSize(minSize),
	  fMaxSize(maxSize),
	  fPreferredSize(preferredSize)
{
}


BSpaceLayoutItem::~BSpaceLayoutItem() = default;


/*!	Takes what is left over, in both directions. */
BSpaceLayoutItem*
BSpaceLayoutItem::CreateGlue()
{
	return new BSpaceLayoutItem(BSize(-1, -1), BSize(B_SIZE_UNLIMITED, B_SIZE_UNLIMITED),
		BSize(-1, -1), BAlignment());
}


BSpaceLayoutItem*
BSpaceLayoutItem::CreateHorizontalStrut(float width)
{
	return new BSpaceLayoutItem(BSize(width, -1), BSize(width, B_SIZE_UNLIMITED), BSize(width, -1),
		BAlignment());
}


BSpaceLayoutItem*
BSpaceLayoutItem::CreateVerticalStrut(float height)
{
	return new BSpaceLayoutItem(BSize(-1, height), BSize(B_SIZE_UNLIMITED, height),
		BSize(-1, height), BAlignment());
}
