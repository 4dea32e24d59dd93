/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LAYOUT_ITEM_H
#define LAYOUT_ITEM_H


#include <Size.h>


class BLayout;
class BView;


/*!	Something that takes a place in a layout: a view, an empty space or a layout. The layout owns
	it.
*/
class BLayoutItem {
public:
	BLayoutItem();
	BLayoutItem(const BLayoutItem&) = delete;
	virtual ~BLayoutItem();

	BLayoutItem& operator=(const BLayoutItem&) = delete;

	BLayout* Layout() const { return fLayout; }

private:
	friend class BGroupLayout;
	friend class BLayout;

	BLayout* fLayout;
};


#endif // LAYOUT_ITEM_H
