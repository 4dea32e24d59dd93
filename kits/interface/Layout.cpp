/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Layout.h>

#include <QBoxLayout>
#include <QWidget>

#include <LayoutPeer.h>
#include <ViewPeer.h>


// #pragma mark - BLayoutItem


BLayoutItem::BLayoutItem()
	: fLayout(NULL)
{
}


BLayoutItem::~BLayoutItem() = default;


// #pragma mark - BLayout


/*!	\param peer Owned by the layout. */
BLayout::BLayout(LayoutPeer* peer)
	: fPeer(peer),
	  fOwner(NULL)
{
}


BLayout::~BLayout()
{
	for (BLayoutItem* item : fItems)
		delete item;
	delete fPeer;
}


void
BLayout::_SetOwner(BView* owner)
{
	fOwner = owner;
	if (Layout() == NULL)
		ViewPeer::Of(owner)->Widget()->setLayout(fPeer->Box());
}
