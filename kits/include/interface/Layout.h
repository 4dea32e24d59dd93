/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LAYOUT_H
#define LAYOUT_H


#include <vector>

#include <LayoutItem.h>


class LayoutPeer;


/*!	Places the views of its owner. A view or a window owns its layout, a layout those inside of it.
	Views that are added to it become children of the owner, so it is given its owner first.
*/
class BLayout : public BLayoutItem {
public:
	~BLayout() override;

	// The view whose children are placed. For a window's layout that is none of the client's views.
	BView* Owner() const { return fOwner; }

protected:
	explicit BLayout(LayoutPeer* peer);

	LayoutPeer* fPeer;
	std::vector<BLayoutItem*> fItems;

private:
	friend class BGroupLayout;
	friend class BView;
	friend class BWindow;
	friend class LayoutPeer;

	void _SetOwner(BView* owner);

	BView* fOwner;
};


#endif // LAYOUT_H
