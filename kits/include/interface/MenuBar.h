/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MENU_BAR_H
#define MENU_BAR_H


#include <Menu.h>


/*!	The bar of a window's menus. It stays inside of the window on every desktop. */
class BMenuBar : public BMenu {
public:
	BMenuBar(const char* name, menu_layout layout = B_ITEMS_IN_ROW,
		uint32 flags = B_WILL_DRAW | B_FRAME_EVENTS);
	BMenuBar(BRect frame, const char* name, uint32 resizingMode = 0,
		menu_layout layout = B_ITEMS_IN_ROW, bool resizeToFit = true)
		= delete;

	void AttachedToWindow() override;
};


#endif // MENU_BAR_H
