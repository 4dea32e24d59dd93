/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TOOL_TIP_LIST_VIEW_H
#define TOOL_TIP_LIST_VIEW_H


#include <ListView.h>


/*!	A list of which one row can be selected, and whose rows say in a tool tip what they have no
	room for: those that are a ToolTipRow. In the thread of its window. Rows leave it by index.
	Whoever changes the text of a row takes the tool tip away, with SetToolTip("").
*/
class ToolTipListView : public BListView {
public:
	explicit ToolTipListView(const char* name);
	~ToolTipListView() override;

	using BListView::RemoveItem;
	BListItem* RemoveItem(int32 index) override;
	void MakeEmpty() override;

	void FrameResized(float newWidth, float newHeight) override;
	bool GetToolTipAt(BPoint point, BToolTip** _tip) override;
};


#endif // TOOL_TIP_LIST_VIEW_H
