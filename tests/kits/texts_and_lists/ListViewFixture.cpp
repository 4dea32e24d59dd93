/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ListViewFixture.h"

#include <string>

#include <Message.h>
#include <ScrollView.h>

#include "UserInput.h"
#include "WaitFor.h"
#include "WindowWithView.h"


NumberItem::NumberItem(int32 number, float height)
	: fNumber(number),
	  fFixedHeight(height)
{
}


void
NumberItem::DrawItem(BView* owner, BRect frame, bool /*complete*/)
{
	owner->DrawString(std::to_string(fNumber).c_str(), frame.LeftBottom());
	owner->DrawString("a number", frame.LeftBottom());
}


void
NumberItem::Update(BView* owner, const BFont* font)
{
	BListItem::Update(owner, font);
	SetHeight(fFixedHeight);
}


// #pragma mark - ListViewFixture


void
ListViewFixture::SetUp()
{
	fList = new BListView("list");
	fList->SetInvocationMessage(new BMessage(kMsgInvoked));
	fList->SetSelectionMessage(new BMessage(kMsgSelected));
	fWindow = new WindowWithView(300, 200);
	fWindow->Add(new BScrollView("scroll", fList, B_WILL_DRAW, false, true));
	fWindow->ShowIt();
}


BListItem*
ListViewFixture::Keep(BListItem* item)
{
	fItems.emplace_back(item);
	return item;
}


void
ListViewFixture::AddStrings(int32 count)
{
	for (int32 i = 0; i < count; i++)
		fList->AddItem(Keep(new BStringItem(("row " + std::to_string(i)).c_str())));
}


/*!	Adds them, and waits until they are on the screen. */
void
ListViewFixture::ShowStrings(int32 count)
{
	AddStrings(count);
	ASSERT_TRUE(WaitForRows(fList->CountItems()));
}


bool
ListViewFixture::WaitForRows(int32 count)
{
	return WaitFor([this, count]() {
		return accessible_of(fList).childCount == count;
	});
}


BPoint
ListViewFixture::CenterOf(int32 index)
{
	const BRect frame = fList->ItemFrame(index);
	return BPoint((frame.left + frame.right) / 2, (frame.top + frame.bottom) / 2);
}
