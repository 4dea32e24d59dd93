/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SERVER_ITEM_H
#define SERVER_ITEM_H


#include <ListItem.h>

#include "ToolTipRow.h"


/*!	A row of the tracker window: a server's name and how many users it has, what it says about
	itself, and where it is.
	Lives in the thread of its window, which owns it.
*/
class ServerItem : public BStringItem, public ToolTipRow {
public:
	ServerItem(const char* name, const char* desc, const char* address, uint16 port, uint16 users);
	~ServerItem() override;

	const char* Address() const { return fAddress; }
	uint16 Port() const { return fPort; }

	void DrawItem(BView* owner, BRect frame, bool complete = false) override;
	void Update(BView* owner, const BFont* font) override;
	BString ToolTipText(float rowWidth) const override;

private:
	float _NameWidth(float rowWidth) const;
	BString _UsersText() const;

	char fAddress[64];
	char fDesc[256];
	uint16 fPort;
	uint16 fUsers;
};


#endif // SERVER_ITEM_H
