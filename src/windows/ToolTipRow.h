/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TOOL_TIP_ROW_H
#define TOOL_TIP_ROW_H


#include <Font.h>
#include <String.h>


/*!	What a row of a ToolTipListView is besides an item: it draws as much of its texts as it has
	room for, and knows all of them. Asked in the thread of its window, when the mouse rests there.
*/
class ToolTipRow {
public:
	virtual ~ToolTipRow() = default;

	// The whole of each text that has no room, in lines; empty if all have. The width is that of
	// the frame that is drawn in.
	virtual BString ToolTipText(float rowWidth) const = 0;

protected:
	// Measures no more of a very long text than there is room for.
	static bool _Fits(const BFont* font, const char* text, float width);
};


inline bool
ToolTipRow::_Fits(const BFont* font, const char* text, float width)
{
	BString cut(text);
	font->TruncateString(&cut, B_TRUNCATE_END, width);
	return cut == text;
}


#endif // TOOL_TIP_ROW_H
