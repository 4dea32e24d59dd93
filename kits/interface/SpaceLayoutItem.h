/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SPACE_LAYOUT_ITEM_H
#define SPACE_LAYOUT_ITEM_H


#include <LayoutItem.h>


/*!	An empty place in a layout: glue takes what is left over, a strut has a size. Sizes are in pixels. */
class BSpaceLayoutItem : public BLayoutItem {
public:
	BSpaceLayoutItem(BSize minSize, BSize maxSize, BSize preferredSize, BAlignment alignment);
	~BSpaceLayoutItem() override;

	static BSpaceLayoutItem* CreateGlue();
	static BSpaceLayoutItem* CreateHorizontalStrut(float width);
	static BSpaceLayoutItem* CreateVerticalStrut(float height);

	BSize MinSize() const { return fMinSize; }
	BSize MaxSize() const { return fMaxSize; }
	BSize PreferredSize() const { return fPreferredSize; }

private:
	BSize fMinSize;
	BSize fMaxSize;
	BSize fPreferredSize;
};


#endif // SPACE_LAYOUT_ITEM_H
