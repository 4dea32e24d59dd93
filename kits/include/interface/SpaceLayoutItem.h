/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SPACE_LAYOUT_ITEM_H
#define SPACE_LAYOUT_ITEM_H


#include <LayoutItem.h>


/*!	An empty place in a layout. Sizes are in pixels. */
class BSpaceLayoutItem : public BLayoutItem {
public:
	static BSpaceLayoutItem* CreateGlue();

	BSize MinSize() { return fMinSize; }
	BSize MaxSize() { return fMaxSize; }
	BSize PreferredSize() { return fPreferredSize; }

private:
	BSpaceLayoutItem(BSize minSize, BSize maxSize, BSize preferredSize);

	BSize fMinSize;
	BSize fMaxSize;
	BSize fPreferredSize;
};


#endif // SPACE_LAYOUT_ITEM_H
