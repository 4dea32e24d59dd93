/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LIST_MODEL_H
#define LIST_MODEL_H


#include <QAbstractItemDelegate>
#include <QAbstractListModel>
#include <QListView>

#include <SupportDefs.h>


class ListViewPeer;


/*!	What Qt knows of the rows. Texts are only for screen readers and for finding a row by
	typing.
*/
class ListModel : public QAbstractListModel {
public:
	explicit ListModel(ListViewPeer* peer);

	int rowCount(const QModelIndex& parent = QModelIndex()) const override;
	QVariant data(const QModelIndex& index, int role) const override;

	// Around a change of the peer's rows.
	void BeginInsert(int32 first, int32 count);
	void EndInsert() { endInsertRows(); }
	void BeginRemove(int32 index) { beginRemoveRows(QModelIndex(), index, index); }
	void EndRemove() { endRemoveRows(); }
	void BeginReset() { beginResetModel(); }
	void EndReset() { endResetModel(); }

private:
	ListViewPeer* fPeer;
};


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


/*!	The widget of a list. */
class ListWidget : public QListView {
public:
	explicit ListWidget(ListViewPeer* peer);

protected:
	bool event(QEvent* event) override;
	void keyPressEvent(QKeyEvent* event) override;
	void mouseDoubleClickEvent(QMouseEvent* event) override;
	void resizeEvent(QResizeEvent* event) override;
	void scrollContentsBy(int dx, int dy) override;
	QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
	ListViewPeer* fPeer;
};


#endif // LIST_MODEL_H
