/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MENU_H
#define MENU_H


#include <vector>

#include <View.h>


class BMenuItem;
class MenuPeer;


enum menu_layout { B_ITEMS_IN_ROW = 0, B_ITEMS_IN_COLUMN };


/*!	A list of items to choose from. It owns its items. Lives in the menu bar of a window. */
class BMenu : public BView {
public:
	BMenu(const char* name, menu_layout layout = B_ITEMS_IN_COLUMN);
	BMenu(const char* name, float width, float height) = delete;
	~BMenu() override;

	bool AddItem(BMenuItem* item);
	bool AddItem(BMenuItem* item, int32 index) = delete;
	bool AddItem(BMenuItem* item, BRect frame) = delete;
	bool AddItem(BMenu* menu);
	bool AddItem(BMenu* menu, int32 index) = delete;
	bool AddItem(BMenu* menu, BRect frame) = delete;
	bool AddSeparatorItem();
	BMenuItem* ItemAt(int32 index) const;
	BMenu* SubmenuAt(int32 index) const;
	int32 CountItems() const { return static_cast<int32>(fItems.size()); }
	int32 IndexOf(BMenuItem* item) const;
	int32 IndexOf(BMenu* menu) const = delete;
	BMenuItem* FindItem(const char* label) const;
	BMenuItem* FindItem(uint32 command) const;
	BMenu* Supermenu() const;

protected:
	BMenu(MenuPeer* peer, const char* name, uint32 flags);

private:
	friend class BMenuItem;
	friend class BMenuBar;

	BWindow* _HostWindow() const;
	void _SetDefaultTargets(BWindow* window);

	MenuPeer* fMenuPeer;
	std::vector<BMenuItem*> fItems;
	BMenuItem* fSuperitem;
};


#endif // MENU_H
