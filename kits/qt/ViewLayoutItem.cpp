/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ViewLayoutItem.h>

#include <QStyle>
#include <QWidget>

#include <GeometryConversion.h>
#include <View.h>
#include <ViewPeer.h>


ViewLayoutItem::ViewLayoutItem(BView* view)
	: QWidgetItem(ViewPeer::Of(view)->Widget()),
	  fView(view)
{
}


QSize
ViewLayoutItem::sizeHint() const
{
	const QSize size = size_to_toolkit(fView->PreferredSize());
	return size.expandedTo(minimumSize()).boundedTo(maximumSize());
}


QSize
ViewLayoutItem::minimumSize() const
{
	return size_to_toolkit(compose_size(fView->MinSize(), fView->ExplicitMinSize()));
}


/*!	Never less than the minimum. */
QSize
ViewLayoutItem::maximumSize() const
{
	const BSize size = compose_size(fView->MaxSize(), fView->ExplicitMaxSize());
	return size_to_toolkit(size).expandedTo(minimumSize());
}


/*!	None: what grows is what may grow by its maximum and its weight. */
Qt::Orientations
ViewLayoutItem::expandingDirections() const
{
	return {};
}


/*!	A view that may not be as large as its place stands in the middle of it, some at the left. */
void
ViewLayoutItem::setGeometry(const QRect& rect)
{
	const QSize size = rect.size().boundedTo(maximumSize());
	const Qt::Alignment alignment = ViewPeer::Of(fView)->Alignment();
	wid->setGeometry(QStyle::alignedRect(Qt::LeftToRight, alignment, size, rect));
}
