/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ListItem.h>

#include <cmath>

#include <Font.h>
#include <InterfaceDefs.h>
#include <View.h>


// In pixels.
static const float kTextInset = 5;
static const float kRowSpacing = 4;


// Differs from Haiku: there are no outlines here.
BListItem::BListItem(uint32 /*outlineLevel*/, bool /*expanded*/)
	: fHeight(0),
	  fSelected(false)
{
}


BListItem::~BListItem() = default;


void
BListItem::SetHeight(float height)
{
	fHeight = height;
}


/*!	Called when the row is added to a list, and when the list's font changes. */
void
BListItem::Update(BView* /*owner*/, const BFont* font)
{
	font_height height;
	font->GetHeight(&height);
	SetHeight(std::ceil(height.ascent + height.descent + height.leading));
}


// #pragma mark -


BStringItem::BStringItem(const char* text, uint32 outlineLevel, bool expanded)
	: BListItem(outlineLevel, expanded),
	  fText(text),
	  fBaselineOffset(0)
{
}


void
BStringItem::DrawItem(BView* owner, BRect frame, bool complete)
{
	if (IsSelected() || complete) {
		owner->SetHighColor(
			IsSelected() ? ui_color(B_LIST_SELECTED_BACKGROUND_COLOR) : owner->ViewColor());
		owner->FillRect(frame);
	}
	owner->SetHighColor(
		ui_color(IsSelected() ? B_LIST_SELECTED_ITEM_TEXT_COLOR : B_LIST_ITEM_TEXT_COLOR));
	owner->DrawString(Text(), BPoint(frame.left + kTextInset, frame.top + fBaselineOffset));
}


void
BStringItem::Update(BView* /*owner*/, const BFont* font)
{
	font_height height;
	font->GetHeight(&height);
	fBaselineOffset = std::ceil(height.ascent + height.leading / 2) + kRowSpacing / 2;
	SetHeight(std::ceil(height.ascent) + std::ceil(height.descent) + std::ceil(height.leading)
		+ kRowSpacing);
}


void
BStringItem::SetText(const char* text)
{
	fText = text;
}


const char*
BStringItem::Text() const
{
	return fText.String();
}
