/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <MenuItem.h>

#include <QAction>

#include <InterfaceDefs.h>
#include <KeyConversion.h>
#include <Menu.h>
#include <MenuPeer.h>
#include <OS.h>
#include <TextConversion.h>


/*!	\param label Bytes, shown as UTF-8.
	\param message Owned by the item; NULL for none.
	\param shortcut 0 for none.
*/
BMenuItem::BMenuItem(const char* label, BMessage* message, char shortcut, uint32 modifiers)
	: BInvoker(message, NULL),
	  fPeer(new MenuItemPeer(this, NULL)),
	  fLabel(label),
	  fSuper(NULL),
	  fSubmenu(NULL),
	  fShortcut(shortcut),
	  fModifiers(shortcut != 0 ? modifiers | B_COMMAND_KEY : 0)
{
	fPeer->Action()->setText(text_from_bytes(label, kMnemonicText));
	fPeer->Action()->setShortcut(keys_of_shortcut(fShortcut, fModifiers));
}


BMenuItem::BMenuItem(BMenu* menu, BMessage* message)
	: BInvoker(message, NULL),
	  fPeer(new MenuItemPeer(this, menu->fMenuPeer->Entrance())),
	  fLabel(menu->Name()),
	  fSuper(NULL),
	  fSubmenu(menu),
	  fShortcut(0),
	  fModifiers(0)
{
	menu->fSuperitem = this;
	fPeer->Action()->setText(text_from_bytes(menu->Name(), kMnemonicText));
}


BMenuItem::~BMenuItem()
{
	delete fPeer;
	delete fSubmenu;
}


/*!	0 for none. */
char
BMenuItem::Shortcut(uint32* _modifiers) const
{
	if (_modifiers != NULL)
		*_modifiers = fModifiers;
	return fShortcut;
}


/*!	Sends a copy of the given message, or of the item's own.
	\return \c B_BAD_VALUE when there is neither.
*/
status_t
BMenuItem::Invoke(BMessage* message)
{
	if (message == NULL)
		message = Message();
	if (message == NULL)
		return B_BAD_VALUE;

	BMessage copy(*message);
	copy.AddInt64("when", system_time());
	copy.AddPointer("source", this);
	const BMessenger sender(fSuper);
	copy.AddData("be:sender", B_MESSENGER_TYPE, &sender, sizeof(sender));
	copy.AddInt32("index", fSuper != NULL ? fSuper->IndexOf(this) : -1);
	return BInvoker::Invoke(&copy);
}


// #pragma mark - BSeparatorItem


BSeparatorItem::BSeparatorItem()
	: BMenuItem("", NULL)
{
	fPeer->Action()->setSeparator(true);
}
