/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "UserItem.h"

#include <Font.h>
#include <InterfaceDefs.h>
#include <String.h>
#include <View.h>

#include "RowPainter.h"
#include "UserListWindow.h"


static const float kIconInset = 4.0f;
static const float kDotSize = 12.0f;
static const float kTextSpacing = 6.0f;
static const float kTextLeft = kIconInset + RowPainter::kIconSize + kTextSpacing;
static const float kRightInset = 6.0f;

// The bit of the status word that colors the nick.
static const uint16 kAdministratorBit = 1 << 1;


/*!	\param status The whole status word, not its bits: only these few values have a color of their
	own.
*/
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


/*!	How much of a row's width is for the nick. */
static float
nick_width(float rowWidth)
{
	return rowWidth - kTextLeft - kRightInset;
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
	RowPainter painter(owner, frame, IsSelected());
	painter.DrawBackground(complete);

	const float left = frame.left + kIconInset;
	const BBitmap* icon = fOwner->IconForID(fIcon);
	if (icon != NULL)
		painter.DrawIcon(icon, left);
	else
		painter.DrawDisc(left, kDotSize, dot_color(fColor));

	// Unlike the dot's this color follows one bit of the status word.
	const bool isAdministrator = (fColor & kAdministratorBit) != 0;
	owner->SetFont(be_plain_font, B_FONT_ALL);
	owner->SetHighColor(isAdministrator ? make_color(200, 0, 0) : painter.TextColor());
	BString nick(Text());
	owner->TruncateString(&nick, B_TRUNCATE_END, nick_width(frame.Width()));
	owner->DrawString(nick.String(), BPoint(frame.left + kTextLeft, painter.Baseline()));
}


BString
UserItem::ToolTipText(float rowWidth) const
{
	const bool fits = _Fits(be_plain_font, Text(), nick_width(rowWidth));
	return fits ? BString() : BString(Text());
}
