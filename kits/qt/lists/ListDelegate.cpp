/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ListDelegate.h>

#include <QHelpEvent>

#include <ListViewPeer.h>


ListDelegate::ListDelegate(ListViewPeer* peer)
	: fPeer(peer)
{
}


void
ListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
	const QModelIndex& index) const
{
	fPeer->DrawRow(painter, option.rect, index.row());
}


bool
ListDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* /*view*/,
	const QStyleOptionViewItem& option, const QModelIndex& /*index*/)
{
	if (event->type() != QEvent::ToolTip)
		return false;
	fPeer->ShowToolTip(event, option.rect);
	return true;
}


QSize
ListDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const
{
	return QSize(1, fPeer->HeightOf(index.row()));
}
