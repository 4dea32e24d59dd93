/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LIST_VIEW_FIXTURE_H
#define LIST_VIEW_FIXTURE_H


#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include <ListView.h>

#include "WindowWithView.h"


const uint32 kMsgInvoked = 'invk';
const uint32 kMsgSelected = 'slct';


/*!	A row without a text of its own, of some height. */
class NumberItem : public BListItem {
public:
	NumberItem(int32 number, float height);

	int32 Number() const { return fNumber; }

	void DrawItem(BView* owner, BRect frame, bool complete) override;
	void Update(BView* owner, const BFont* font) override;

private:
	int32 fNumber;
	float fFixedHeight;
};


/*!	A list in a window on the screen, with a message for what is invoked and one for what is
	selected.
*/
class ListViewFixture : public ViewInAWindow {
protected:
	void SetUp() override;

	// The test owns the item from here on.
	BListItem* Keep(BListItem* item);
	void AddStrings(int32 count);
	void ShowStrings(int32 count);
	// Waits until the toolkit has so many rows.
	bool WaitForRows(int32 count);
	BPoint CenterOf(int32 index);

	// They outlive the list.
	std::vector<std::unique_ptr<BListItem>> fItems;
	BListView* fList;
};


#endif // LIST_VIEW_FIXTURE_H
