/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ScrollView.h>

#include <QAbstractScrollArea>
#include <QVBoxLayout>

#include <ViewPeer.h>


/*!	\param target A text view or a list view, which scrolls by itself. */
BScrollView::BScrollView(const char* name, BView* target, uint32 flags, bool horizontal,
	bool vertical, border_style border)
	: BView(new ViewPeer(new QWidget), name, flags),
	  fTarget(target),
	  fBorder(border)
{
	QVBoxLayout* layout = new QVBoxLayout(ViewPeer::Of(this)->Widget());
	layout->setContentsMargins(0, 0, 0, 0);
	if (target == NULL)
		return;

	AddChild(target);
	layout->addWidget(ViewPeer::Of(target)->Widget());
	QAbstractScrollArea* area = qobject_cast<QAbstractScrollArea*>(ViewPeer::Of(target)->Widget());
	if (area == NULL)
		return;

	// Bars that come and go would wrap the whole text anew.
	area->setHorizontalScrollBarPolicy(horizontal ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
	area->setVerticalScrollBarPolicy(vertical ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
	if (border == B_NO_BORDER)
		area->setFrameShape(QFrame::NoFrame);
	else
		area->setFrameStyle(border == B_FANCY_BORDER ? QFrame::StyledPanel | QFrame::Sunken
													 : QFrame::Box | QFrame::Plain);
}
