/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Menu.h>

#include <algorithm>
#include <cstring>


#include <MenuItem.h>
#include <MenuPeer.h>
#include <StrictChecks.h>
#include <Window.h>


/*!	\param name Also the label of the item that opens the menu. */
BMenu::BMenu(const char* name, menu_layout /*layout*/)
	: BMenu(new MenuPeer(false), name, B_WILL_DRAW)
{
}


/*!	\param peer Owned by the menu. */
BMenu::BMenu(MenuPeer* peer, const char* name, uint32 flags)
	: BView(peer, name, flags),
	  fMenuPeer(peer),
	  fSuperitem(NULL)
{
}


BMenu::~BMenu()
{
	for (BMenuItem* item : fItems)
		delete item;
}


/*!	The menu owns the item from now on. False when the item is in a menu already. */
bool
BMenu::AddItem(BMenuItem* item)
{
	CHECK_LOCKED(_HostWindow());
	if (item == NULL || item->fSuper != NULL)
		return false;

	item->fSuper = this;
	fItems.push_back(item);
	fMenuPeer->Append(item->fPeer->Action());
	fMenuPeer->InvalidateLayout();

	BWindow* window = _HostWindow();
	if (window != NULL)
		_SetDefaultTargets(window);
	return true;
}


/*!	Puts an item that opens the other menu into this one. */
bool
BMenu::AddItem(BMenu* menu)
{
	if (menu == NULL || menu->fSuperitem != NULL)
		return false;
	BMenuItem* item = new BMenuItem(menu);
	const bool added = AddItem(item);
	if (!added)
		delete item;
	return added;
}


bool
BMenu::AddSeparatorItem()
{
	BMenuItem* item = new BSeparatorItem;
	const bool added = AddItem(item);
	if (!added)
		delete item;
	return added;
}


BMenuItem*
BMenu::ItemAt(int32 index) const
{
	return index >= 0 && index < CountItems() ? fItems[index] : NULL;
}


BMenu*
BMenu::SubmenuAt(int32 index) const
{
	const BMenuItem* item = ItemAt(index);
	return item != NULL ? item->Submenu() : NULL;
}


int32
BMenu::IndexOf(BMenuItem* item) const
{
	const auto found = std::find(fItems.begin(), fItems.end(), item);
	return found != fItems.end() ? static_cast<int32>(found - fItems.begin()) : -1;
}


/*!	The first item with that label, in this menu or in those below it. */
BMenuItem*
BMenu::FindItem(const char* label) const
{
	for (BMenuItem* item : fItems) {
		if (label != NULL && strcmp(item->Label(), label) == 0)
			return item;
		BMenuItem* found = item->Submenu() != NULL ? item->Submenu()->FindItem(label) : NULL;
		if (found != NULL)
			return found;
	}
	return NULL;
}


/*!	The first item whose message has that code, in this menu or in those below it. */
BMenuItem*
BMenu::FindItem(uint32 command) const
{
	for (BMenuItem* item : fItems) {
		if (item->Message() != NULL && item->Command() == command)
			return item;
		BMenuItem* found = item->Submenu() != NULL ? item->Submenu()->FindItem(command) : NULL;
		if (found != NULL)
			return found;
	}
	return NULL;
}


BMenu*
BMenu::Supermenu() const
{
	return fSuperitem != NULL ? fSuperitem->Menu() : NULL;
}


/*!	The window of the menu bar that the menu hangs in, NULL while there is none. */
BWindow*
BMenu::_HostWindow() const
{
	const BMenu* menu = this;
	while (menu->Supermenu() != NULL)
		menu = menu->Supermenu();
	return menu->Window();
}


void
BMenu::_SetDefaultTargets(BWindow* window)
{
	for (BMenuItem* item : fItems) {
		if (!item->Messenger().IsValid())
			item->SetTarget(window);
		if (item->Submenu() != NULL)
			item->Submenu()->_SetDefaultTargets(window);
	}
}
