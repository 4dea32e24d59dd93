/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef GROUP_VIEW_H
#define GROUP_VIEW_H


#include <GroupLayout.h>
#include <View.h>


/*!	A view that places its children in a row or in a column. */
class BGroupView : public BView {
public:
	BGroupView(orientation orientation = B_HORIZONTAL, float spacing = B_USE_DEFAULT_SPACING);
	~BGroupView() override;

	BGroupLayout* GroupLayout() const;
};


#endif // GROUP_VIEW_H
