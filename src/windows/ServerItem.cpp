/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ServerItem.h"

#include <cstring>

#include <Font.h>
#include <InterfaceDefs.h>
#include <String.h>
#include <View.h>

#include "RowPainter.h"


static const float kInset = 6.0f;
// Between the name and what stands at the right.
static const float kColumnSpacing = 8.0f;
// How much taller a row is than its three lines.
static const float kRowPadding = 8.0f;
static const float kDescriptionTint = 0.59f;


template<size_t size>
static void
copy_text(char (&buffer)[size], const char* text)
{
	strncpy(buffer, text, size - 1);
	buffer[size - 1] = '\0';
}


/*!	How much of a row's width is for the description. */
static float
description_width(float rowWidth)
{
	return rowWidth - 2 * kInset;
}


static float
line_height(const font_height& height)
{
	return height.ascent + height.descent + height.leading;
}


/*!	The address and the description are cut to 63 and 255 bytes. */
ServerItem::ServerItem(const char* name, const char* desc, const char* address, uint16 port,
	uint16 users)
	: BStringItem(name),
	  fPort(port),
	  fUsers(users)
{
	copy_text(fAddress, address);
	copy_text(fDesc, desc);
}


ServerItem::~ServerItem() = default;


void
ServerItem::Update(BView* owner, const BFont* font)
{
	BStringItem::Update(owner, font);

	font_height height;
	font->GetHeight(&height);
	SetHeight(3 * line_height(height) + kRowPadding);
}


void
ServerItem::DrawItem(BView* owner, BRect frame, bool complete)
{
	RowPainter painter(owner, frame, IsSelected());
	painter.DrawBackground(complete);

	font_height height;
	owner->GetFontHeight(&height);
	const float left = frame.left + kInset;
	const float nameY = frame.top + height.ascent + 2;
	const float descY = nameY + line_height(height) + 1;
	const float addressY = descY + line_height(height);
	const rgb_color textColor = painter.TextColor();
	const rgb_color dimColor = tint_color(ui_color(B_PANEL_BACKGROUND_COLOR), B_DARKEN_2_TINT);

	// A name too long for the row would run into the number of users.
	owner->SetFont(be_bold_font, B_FONT_ALL);
	owner->SetHighColor(textColor);
	BString text(Text());
	owner->TruncateString(&text, B_TRUNCATE_END, _NameWidth(frame.Width()));
	owner->DrawString(text.String(), BPoint(left, nameY));

	owner->SetFont(be_plain_font, B_FONT_ALL);
	owner->SetHighColor(dimColor);
	const BString users(_UsersText());
	const float usersLeft = frame.right - kInset - owner->StringWidth(users.String());
	owner->DrawString(users.String(), BPoint(usersLeft, nameY));

	owner->SetHighColor(tint_color(textColor, kDescriptionTint));
	text = fDesc;
	owner->TruncateString(&text, B_TRUNCATE_END, description_width(frame.Width()));
	owner->DrawString(text.String(), BPoint(left, descY));

	owner->SetHighColor(dimColor);
	text.SetToFormat("%s:%u", fAddress, fPort);
	owner->DrawString(text.String(), BPoint(left, addressY));
}


BString
ServerItem::ToolTipText(float rowWidth) const
{
	BString text;
	if (!_Fits(be_bold_font, Text(), _NameWidth(rowWidth)))
		text << Text();
	if (!_Fits(be_plain_font, fDesc, description_width(rowWidth))) {
		if (!text.IsEmpty())
			text << '\n';
		text << fDesc;
	}
	return text;
}


/*!	How much of a row's width is for the name. */
float
ServerItem::_NameWidth(float rowWidth) const
{
	const float usersWidth = be_plain_font->StringWidth(_UsersText().String());
	return rowWidth - 2 * kInset - usersWidth - kColumnSpacing;
}


BString
ServerItem::_UsersText() const
{
	BString text;
	text.SetToFormat("%u user%s", fUsers, fUsers == 1 ? "" : "s");
	return text;
}
