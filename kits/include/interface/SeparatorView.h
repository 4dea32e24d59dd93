/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SEPARATOR_VIEW_H
#define SEPARATOR_VIEW_H


#include <View.h>


/*!	A line between groups of views. */
class BSeparatorView : public BView {
public:
	BSeparatorView(orientation orientation, border_style border = B_PLAIN_BORDER);
	BSeparatorView(const char* name, const char* label, orientation orientation = B_HORIZONTAL,
		border_style border = B_FANCY_BORDER)
		= delete;
	BSeparatorView(const char* name, BView* labelView, orientation orientation = B_HORIZONTAL,
		border_style border = B_FANCY_BORDER)
		= delete;
	BSeparatorView(const char* label = NULL, orientation orientation = B_HORIZONTAL,
		border_style border = B_FANCY_BORDER)
		= delete;
	BSeparatorView(BView* labelView, orientation orientation = B_HORIZONTAL,
		border_style border = B_FANCY_BORDER)
		= delete;

	void Draw(BRect updateRect) override;
	BSize MinSize() override;
	BSize MaxSize() override;
	BSize PreferredSize() override;

private:
	orientation fOrientation;
	border_style fBorder;
};


#endif // SEPARATOR_VIEW_H
