/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <GroupView.h>


BGroupView::BGroupView(orientation orientation, float spacing)
	: BView(NULL, B_WILL_DRAW)
{
	SetViewUIColor(B_PANEL_BACKGROUND_COLOR);
	SetLayout(new BGroupLayout(orientation, spacing));
}


BGroupView::~BGroupView() = default;


BGroupLayout*
BGroupView::GroupLayout() const
{
	return static_cast<BGroupLayout*>(GetLayout());
}
