/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MENU_ITEM_H
#define MENU_ITEM_H


#include <Invoker.h>
#include <String.h>


class BMenu;
class MenuItemPeer;


/*!	An item of a menu, or the entrance to a menu below it. Choosing it sends its message: to the
	menu's window unless it was given another target. The message leaves with "when" (int64,
	microseconds), "source" (pointer to the item), "be:sender" (messenger of its menu) and "index"
	(int32, its place in the menu).
*/
class BMenuItem : public BInvoker {
public:
	// The shortcut is typed with the command key and the other modifiers.
	BMenuItem(const char* label, BMessage* message, char shortcut = 0, uint32 modifiers = 0);
	// The item owns the menu.
	BMenuItem(BMenu* menu, BMessage* message = NULL);
	~BMenuItem() override;

	const char* Label() const { return fLabel.String(); }
	char Shortcut(uint32* _modifiers = NULL) const;
	BMenu* Submenu() const { return fSubmenu; }
	BMenu* Menu() const { return fSuper; }

protected:
	status_t Invoke(BMessage* message = NULL) override;

private:
	friend class BMenu;
	friend class BSeparatorItem;
	friend class MenuItemPeer;

	MenuItemPeer* fPeer;
	BString fLabel;
	BMenu* fSuper;
	BMenu* fSubmenu;
	char fShortcut;
	uint32 fModifiers;
};


/*!	A line between the items of a menu. */
class BSeparatorItem : public BMenuItem {
public:
	BSeparatorItem();
};


#endif // MENU_ITEM_H
