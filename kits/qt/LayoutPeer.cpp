/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <LayoutPeer.h>

#include <cmath>

#include <QBoxLayout>


// QBoxLayout has whole numbers for weights.
static const float kWeightFactor = 100;


/*!	\param layout Owned by the peer. */
LayoutPeer::LayoutPeer(QBoxLayout* layout)
	: fBox(layout),
	  fOuter(NULL)
{
	fBox->setContentsMargins(0, 0, 0, 0);
	// The kits' windows keep their limits themselves.
	fBox->setSizeConstraint(QLayout::SetNoConstraint);
}


/*!	The layouts inside of it have to be gone. */
LayoutPeer::~LayoutPeer()
{
	if (fOuter != NULL)
		fOuter->fBox->removeItem(fBox);
	delete fBox;
}


LayoutPeer*
LayoutPeer::Of(const BLayout* layout)
{
	return layout->fPeer;
}


void
LayoutPeer::AddItem(QLayoutItem* item, float weight)
{
	fBox->addItem(item);
	fBox->setStretch(fBox->count() - 1, static_cast<int>(std::lround(weight * kWeightFactor)));
}


void
LayoutPeer::AddLayout(LayoutPeer* peer, float weight)
{
	peer->fOuter = this;
	fBox->addLayout(peer->fBox, static_cast<int>(std::lround(weight * kWeightFactor)));
}


void
LayoutPeer::Invalidate()
{
	fBox->invalidate();
}
