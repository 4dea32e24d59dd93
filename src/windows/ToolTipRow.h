/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TOOL_TIP_ROW_H
#define TOOL_TIP_ROW_H


class BString;


/*!	What a row of a ToolTipListView is besides an item: it draws as much of its texts as it has
	room for, and knows all of them. Asked in the thread of its window, when the mouse rests there.
*/
class ToolTipRow {
public:
	virtual ~ToolTipRow() = default;

	// The whole of each text that has no room, in lines; empty if all have. The width is that of
	// the frame that is drawn in.
	virtual BString ToolTipText(float rowWidth) const = 0;
};


#endif // TOOL_TIP_ROW_H
