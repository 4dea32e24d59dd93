/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LIST_WIDGET_H
#define LIST_WIDGET_H


#include <QListView>


class ListViewPeer;


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
	void _PressReturn(QKeyEvent* event);
	void _Invoke(const QKeyEvent* event);

	ListViewPeer* fPeer;
};


#endif // LIST_WIDGET_H
