/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "UserItem.h"

#include <Bitmap.h>
#include <Font.h>
#include <InterfaceDefs.h>
#include <View.h>

#include "UserListWindow.h"


static const float kIconSize = 16.0f;
static const float kIconInset = 4.0f;
static const float kDotSize = 12.0f;
static const float kTextSpacing = 6.0f;

// The bit of the status word that colors the nick.
static const uint16 kAdministratorBit = 1 << 1;


/*!	\param status The whole status word, not its bits: only these few values have a color of their own. */
static rgb_color
dot_color(uint16 status)
{
	switch (status) {
		case 1:
			return make_color(200, 0, 0);
		case 2:
			return make_color(128, 0, 128);
		case 3:
			return make_color(0, 128, 0);
		default:
			return make_color(50, 100, 180);
	}
}


UserItem::UserItem(uint16 socket, uint16 icon, uint16 color, const char* nick,
	UserListWindow* owner)
	: BStringItem(nick),
	  fSocket(socket),
	  fIcon(icon),
	  fColor(color),
	  fOwner(owner)
{
}


UserItem::~UserItem() = default;


void
UserItem::SetNick(const char* nick)
{
	SetText(nick);
}


void
UserItem::SetIcon(uint16 icon)
{
	fIcon = icon;
}


void
UserItem::SetColor(uint16 color)
{
	fColor = color;
}


void
UserItem::DrawItem(BView* owner, BRect frame, bool complete)
{
	if (IsSelected() || complete) {
		if (IsSelected())
			owner->SetHighColor(ui_color(B_LIST_SELECTED_BACKGROUND_COLOR));
		else
			owner->SetHighColor(owner->ViewColor());
		owner->FillRect(frame);
	}

	const BBitmap* icon = fOwner->IconForID(fIcon);
	if (icon != NULL)
		_DrawIcon(owner, frame, icon);
	else
		_DrawDot(owner, frame);

	owner->SetFont(be_plain_font, B_FONT_ALL);
	font_height height;
	owner->GetFontHeight(&height);
	const float baseline = frame.top + (frame.Height() + height.ascent - height.descent) / 2;
	owner->SetHighColor(_TextColor());
	owner->DrawString(Text(), BPoint(frame.left + kIconInset + kIconSize + kTextSpacing, baseline));
}


/*!	Whatever size the picture has, it fills the same square. */
void
UserItem::_DrawIcon(BView* owner, BRect frame, const BBitmap* icon) const
{
	const float left = frame.left + kIconInset;
	const float top = frame.top + (frame.Height() - kIconSize) / 2;
	owner->SetDrawingMode(B_OP_ALPHA);
	owner->SetBlendingMode(B_PIXEL_ALPHA, B_ALPHA_OVERLAY);
	owner->DrawBitmap(icon, BRect(left, top, left + kIconSize - 1, top + kIconSize - 1));
	owner->SetDrawingMode(B_OP_COPY);
}


void
UserItem::_DrawDot(BView* owner, BRect frame) const
{
	const float left = frame.left + kIconInset;
	const float top = frame.top + (frame.Height() - kDotSize) / 2;
	const BRect dot(left, top, left + kDotSize, top + kDotSize);
	const rgb_color color = dot_color(fColor);
	owner->SetHighColor(color);
	owner->FillEllipse(dot);
	owner->SetHighColor(tint_color(color, B_DARKEN_2_TINT));
	owner->StrokeEllipse(dot);
}


/*!	Unlike the dot's this color follows one bit of the status word. */
rgb_color
UserItem::_TextColor() const
{
	if ((fColor & kAdministratorBit) != 0)
		return make_color(200, 0, 0);
	return ui_color(IsSelected() ? B_LIST_SELECTED_ITEM_TEXT_COLOR : B_LIST_ITEM_TEXT_COLOR);
}
