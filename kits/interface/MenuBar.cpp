/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <MenuBar.h>

#include <MenuPeer.h>


BMenuBar::BMenuBar(const char* name, menu_layout /*layout*/, uint32 flags)
	: BMenu(new MenuPeer(true), name, flags)
{
}


/*!	The window becomes the target of the items that have none. */
void
BMenuBar::AttachedToWindow()
{
	BMenu::AttachedToWindow();
	_SetDefaultTargets(Window());
}
