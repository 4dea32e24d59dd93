/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LIST_ITEM_H
#define LIST_ITEM_H


#include <Rect.h>
#include <String.h>
#include <SupportDefs.h>


class BFont;
class BListView;
class BView;


/*!	A row of a list view. It is owned by who created it, never by the list, and has to leave the
	list before it dies.
	Its height, in pixels of the list's view, becomes known when the list calls Update().
*/
class BListItem {
public:
	BListItem(uint32 outlineLevel = 0, bool expanded = true);
	BListItem(const BListItem&) = delete;
	virtual ~BListItem();

	BListItem& operator=(const BListItem&) = delete;

	float Height() const { return fHeight; }
	bool IsSelected() const { return fSelected; }

	void SetHeight(float height);
	void Select() { fSelected = true; }
	void Deselect() { fSelected = false; }

	virtual void DrawItem(BView* owner, BRect frame, bool complete = false) = 0;
	virtual void Update(BView* owner, const BFont* font);

private:
	float fHeight;
	bool fSelected;
};


/*!	A row that shows one line of text. The text is bytes, which are shown as UTF-8. */
class BStringItem : public BListItem {
public:
	BStringItem(const char* text, uint32 outlineLevel = 0, bool expanded = true);

	void DrawItem(BView* owner, BRect frame, bool complete = false) override;
	void Update(BView* owner, const BFont* font) override;

	virtual void SetText(const char* text);
	const char* Text() const;

private:
	BString fText;
	float fBaselineOffset;
};


#endif // LIST_ITEM_H
