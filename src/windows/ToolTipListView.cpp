/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ToolTipListView.h"

#include <algorithm>

#include <Font.h>
#include <String.h>

#include "ToolTipRow.h"


// Any screen has room for so many times the size of a letter in width, and for so many lines.
static const float kMaxTipWidth = 40.0f;
static const int32 kMaxTipLines = 20;
// Of one line, however narrow its letters are.
static const int32 kMaxLineBytes = 400;
// Mostly there is room for them.
static const int32 kFewestLineBytes = 64;


/*!	Whether a byte of UTF-8 goes on with a character. */
static bool
is_inside_character(char byte)
{
	return (byte & 0xc0) == 0x80;
}


/*!	\param length Of the text, in bytes.
	\param width In pixels.
	\return How many bytes have room, at least 1, in whole characters where there are such.
*/
static int32
fitting_length(const char* text, int32 length, float width)
{
	const auto hasRoom = [text, width](int32 bytes) {
		return be_plain_font->StringWidth(text, bytes) <= width;
	};
	// Measuring takes as long as what is measured, so it does not begin with all of it.
	int32 fits = 1;
	int32 tooLong = kFewestLineBytes;
	const int32 most = std::min<int32>(length, kMaxLineBytes);
	while (tooLong <= most && hasRoom(tooLong)) {
		fits = tooLong;
		tooLong *= 2;
	}
	tooLong = std::min(tooLong, most + 1);
	while (tooLong - fits > 1) {
		const int32 middle = (fits + tooLong) / 2;
		if (hasRoom(middle))
			fits = middle;
		else
			tooLong = middle;
	}
	if (fits == length)
		return fits;

	int32 start = fits;
	while (start > 0 && is_inside_character(text[start]))
		start--;
	return start > 0 ? start : fits;
}


/*!	Ends it behind a line feed, or else, where not all of the text has room, behind a blank.
	\return The length of its first line in bytes.
*/
static int32
line_length(const char* text, int32 length, float width)
{
	const int32 fits = fitting_length(text, length, width);
	const char* const end = text + fits;
	const char* const lineFeed = std::find(text, end, '\n');
	if (lineFeed != end)
		return static_cast<int32>(lineFeed - text) + 1;
	if (fits == length)
		return length;

	int32 blank = fits;
	while (blank > 0 && text[blank - 1] != ' ')
		blank--;
	return blank > 0 ? blank : fits;
}


/*!	Tool tips do not wrap what is too long for the screen by themselves. */
static BString
wrapped_text(const BString& text)
{
	const float width = kMaxTipWidth * be_plain_font->Size();
	BString lines;
	int32 offset = 0;
	for (int32 count = 1; offset < text.Length(); count++) {
		const char* const rest = text.String() + offset;
		const int32 length = line_length(rest, text.Length() - offset, width);
		lines.Append(rest, length);
		offset += length;
		if (offset < text.Length() && count == kMaxTipLines)
			return lines << "…";
		if (offset < text.Length() && !lines.EndsWith("\n"))
			lines << '\n';
	}
	return lines;
}


ToolTipListView::ToolTipListView(const char* name)
	: BListView(name, B_SINGLE_SELECTION_LIST, B_WILL_DRAW | B_FRAME_EVENTS | B_NAVIGABLE)
{
}


ToolTipListView::~ToolTipListView() = default;


/*!	The rows behind it move up: another one is under the mouse. */
BListItem*
ToolTipListView::RemoveItem(int32 index)
{
	SetToolTip("");
	return BListView::RemoveItem(index);
}


void
ToolTipListView::MakeEmpty()
{
	SetToolTip("");
	BListView::MakeEmpty();
}


/*!	There may be room by now. */
void
ToolTipListView::FrameResized(float newWidth, float newHeight)
{
	SetToolTip("");
	BListView::FrameResized(newWidth, newHeight);
}


/*!	Asked when the mouse rests. */
bool
ToolTipListView::GetToolTipAt(BPoint point, BToolTip** _tip)
{
	const int32 index = IndexOf(point);
	const ToolTipRow* row = dynamic_cast<const ToolTipRow*>(ItemAt(index));
	BString text;
	if (row != NULL)
		text = row->ToolTipText(ItemFrame(index).Width());
	SetToolTip(wrapped_text(text).String());
	return BListView::GetToolTipAt(point, _tip);
}
