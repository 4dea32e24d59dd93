/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LAYOUT_PEER_H
#define LAYOUT_PEER_H


#include <Layout.h>


class QBoxLayout;
class QLayoutItem;


/*!	The QBoxLayout that stands for a layout. The layout owns it. */
class LayoutPeer {
public:
	explicit LayoutPeer(QBoxLayout* layout);
	LayoutPeer(const LayoutPeer&) = delete;
	~LayoutPeer();

	LayoutPeer& operator=(const LayoutPeer&) = delete;

	static LayoutPeer* Of(const BLayout* layout);

	QBoxLayout* Box() const { return fBox; }

	// Both take what they are given over; the weight says what share of the space that is left over
	// it gets.
	void AddItem(QLayoutItem* item, float weight);
	void AddLayout(LayoutPeer* peer, float weight);
	void Invalidate();

private:
	QBoxLayout* fBox;
	// The one around this one, if there is one.
	LayoutPeer* fOuter;
};


#endif // LAYOUT_PEER_H
