/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef GROUP_LAYOUT_H
#define GROUP_LAYOUT_H


#include <InterfaceDefs.h>
#include <Layout.h>


/*!	Places its items in a row or in a column. What is left over goes to those that may grow, by
	their weights.
*/
class BGroupLayout : public BLayout {
public:
	BGroupLayout(orientation orientation, float spacing = B_USE_DEFAULT_SPACING);

	void SetInsets(float left, float top, float right, float bottom);
	void SetInsets(float horizontal, float vertical) = delete;
	void SetInsets(float insets);

	BLayoutItem* AddView(BView* child) = delete;
	BLayoutItem* AddView(int32 index, BView* child) = delete;
	virtual BLayoutItem* AddView(BView* child, float weight);
	BLayoutItem* AddView(int32 index, BView* child, float weight) = delete;
	bool AddItem(BLayoutItem* item) = delete;
	bool AddItem(int32 index, BLayoutItem* item) = delete;
	virtual bool AddItem(BLayoutItem* item, float weight);
	bool AddItem(int32 index, BLayoutItem* item, float weight) = delete;
};


#endif // GROUP_LAYOUT_H
