/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ViewLayoutItemPrivate.h>

#include <QWidget>

#include <GeometryConversionPrivate.h>
#include <View.h>
#include <ViewPeer.h>


static int
offset_in_space(int space, bool atStart, bool atEnd)
{
	if (atStart)
		return 0;
	return atEnd ? space : space / 2;
}


ViewLayoutItem::ViewLayoutItem(BView* view)
	: QWidgetItem(ViewPeer::Of(view)->Widget()),
	  fView(view)
{
}


QSize
ViewLayoutItem::sizeHint() const
{
	const BSize size = compose_size(fView->PreferredSize(), fView->ExplicitPreferredSize());
	return size_to_toolkit(size).expandedTo(minimumSize()).boundedTo(maximumSize());
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


/*!	A view that may not be as large as its place stands in it by its alignment. */
void
ViewLayoutItem::setGeometry(const QRect& rect)
{
	const QSize size = rect.size().boundedTo(maximumSize());
	const BAlignment place = fView->LayoutAlignment();
	const int x = offset_in_space(rect.width() - size.width(), place.horizontal == B_ALIGN_LEFT,
		place.horizontal == B_ALIGN_RIGHT);
	const int y = offset_in_space(rect.height() - size.height(), place.vertical == B_ALIGN_TOP,
		place.vertical == B_ALIGN_BOTTOM);
	wid->setGeometry(QRect(rect.topLeft() + QPoint(x, y), size));
}
