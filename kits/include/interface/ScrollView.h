/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SCROLL_VIEW_H
#define SCROLL_VIEW_H


#include <View.h>


/*!	Puts a border and scroll bars around a text view or a list view, which becomes its only child
	and is owned by it.
*/
class BScrollView : public BView {
public:
	BScrollView(const char* name, BView* target, uint32 flags, bool horizontal, bool vertical,
		border_style border = B_FANCY_BORDER);
	BScrollView(const char* name, BView* target, uint32 resizingMode = 0, uint32 flags = 0,
		bool horizontal = false, bool vertical = false, border_style border = B_FANCY_BORDER)
		= delete;

	BView* Target() const { return fTarget; }
	border_style Border() const { return fBorder; }

private:
	BView* fTarget;
	border_style fBorder;
};


#endif // SCROLL_VIEW_H
