/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LIST_DELEGATE_H
#define LIST_DELEGATE_H


#include <QAbstractItemDelegate>


class ListViewPeer;


/*!	Has the rows draw themselves, and the list say what shows while the mouse rests over one. */
class ListDelegate : public QAbstractItemDelegate {
public:
	explicit ListDelegate(ListViewPeer* peer);

	void paint(QPainter* painter, const QStyleOptionViewItem& option,
		const QModelIndex& index) const override;
	bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
		const QModelIndex& index) override;
	QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
	ListViewPeer* fPeer;
};


#endif // LIST_DELEGATE_H
