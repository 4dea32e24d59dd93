/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ICON_ITEM_H
#define ICON_ITEM_H


#include <memory>

#include <ListItem.h>


class BBitmap;


/*!	A row of the icon picker: a picture and its number. Lives in the thread of its window, which
	owns it.
*/
class IconItem : public BListItem {
public:
	IconItem(uint16 id, BBitmap* bitmap);
	~IconItem() override;

	uint16 IconID() const { return fIconID; }

	void DrawItem(BView* owner, BRect frame, bool complete = false) override;
	void Update(BView* owner, const BFont* font) override;

private:
	uint16 fIconID;
	std::unique_ptr<BBitmap> fBitmap;
};


#endif // ICON_ITEM_H
