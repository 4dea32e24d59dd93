/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef USER_ITEM_H
#define USER_ITEM_H


#include <ListItem.h>

#include "ToolTipRow.h"


class UserListWindow;


/*!	A row of the user list: the user's icon, or a dot where there is no picture for it, and the
	nick.
	Lives in the thread of its window, which owns it.
*/
class UserItem : public BStringItem, public ToolTipRow {
public:
	UserItem(uint16 socket, uint16 icon, uint16 color, const char* nick, UserListWindow* owner);
	~UserItem() override;

	uint16 Socket() const { return fSocket; }
	// Of the rows of a list, a later one's is higher.
	int64 Number() const { return fNumber; }
	void SetNumber(int64 number) { fNumber = number; }
	void SetNick(const char* nick);
	void SetIcon(uint16 icon);
	void SetColor(uint16 color);

	void DrawItem(BView* owner, BRect frame, bool complete = false) override;
	BString ToolTipText(float rowWidth) const override;

private:
	int64 fNumber = 0;
	uint16 fSocket; // the server's id of the user
	uint16 fIcon;
	uint16 fColor; // the status word, as the server sends it
	UserListWindow* fOwner;
};


#endif // USER_ITEM_H
