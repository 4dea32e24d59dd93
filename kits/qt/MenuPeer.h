/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MENU_PEER_H
#define MENU_PEER_H


#include <ViewPeer.h>


class BMenuItem;
class QAction;


/*!	A QMenu, or a QMenuBar. */
class MenuPeer : public ViewPeer {
public:
	explicit MenuPeer(bool isBar);

	void Append(QAction* action);
	// What shows in the menu around this one and opens it; NULL for a bar.
	QAction* Entrance() const;

	QSize MinSize() override;
	QSize MaxSize() override;
	QSize PreferredSize() override;
	void FlagsChanged() override;

private:
	bool fIsBar;
};


/*!	A QAction, which is an item of a menu. */
class MenuItemPeer {
public:
	// The entrance of the item's submenu belongs to that; NULL for an item without one.
	MenuItemPeer(BMenuItem* item, QAction* entrance);
	MenuItemPeer(const MenuItemPeer&) = delete;
	~MenuItemPeer();

	MenuItemPeer& operator=(const MenuItemPeer&) = delete;

	QAction* Action() const { return fAction; }

private:
	QAction* fAction;
	bool fOwnsAction;
};


#endif // MENU_PEER_H
