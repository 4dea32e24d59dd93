/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ListModel.h>

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <FocusBorder.h>
#include <ListViewPeer.h>
#include <Window.h>


ListModel::ListModel(ListViewPeer* peer)
	: fPeer(peer)
{
}


int
ListModel::rowCount(const QModelIndex& parent) const
{
	return parent.isValid() ? 0 : fPeer->CountShown();
}


QVariant
ListModel::data(const QModelIndex& index, int role) const
{
	if (index.row() < 0 || index.row() >= fPeer->CountShown())
		return QVariant();
	switch (role) {
		case Qt::DisplayRole:
		case Qt::AccessibleTextRole:
			return fPeer->NameOf(index.row());
		case Qt::AccessibleDescriptionRole:
			return fPeer->DescriptionOf(index.row());
		default:
			return QVariant();
	}
}


void
ListModel::BeginInsert(int32 first, int32 count)
{
	beginInsertRows(QModelIndex(), first, first + count - 1);
}


// #pragma mark -


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


// #pragma mark -


ListWidget::ListWidget(ListViewPeer* peer)
	: fPeer(peer)
{
	setFrameShape(QFrame::NoFrame);
	setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
	setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
	setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
	setEditTriggers(QAbstractItemView::NoEditTriggers);
	setUniformItemSizes(true);
}


bool
ListWidget::event(QEvent* event)
{
	const bool result = QListView::event(event);
	show_focus_by_border(this, event);
	return result;
}


/*!	Return invokes the selected rows, unless the window has a default button: then it is that one's.
*/
void
ListWidget::keyPressEvent(QKeyEvent* event)
{
	if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
		// QListView makes the first row the current one when the list gets the focus. The arrows
		// would go on from there, though the user sees no row selected.
		const bool isSpace = event->key() == Qt::Key_Space;
		if (!isSpace && !selectionModel()->hasSelection())
			selectionModel()->clearCurrentIndex();
		QListView::keyPressEvent(event);
		return;
	}
	const BWindow* window = fPeer->View()->Window();
	if (window != NULL && window->DefaultButton() != NULL) {
		event->ignore();
		return;
	}
	if (!event->isAutoRepeat())
		fPeer->InvokeSelection();
}


/*!	Below the last row nothing is selected any more, and so nothing invoked. */
void
ListWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
	QListView::mouseDoubleClickEvent(event);
	if (event->button() == Qt::LeftButton)
		fPeer->InvokeSelection();
}


void
ListWidget::resizeEvent(QResizeEvent* event)
{
	QListView::resizeEvent(event);
	fPeer->Resize();
}


/*!	Another row is under the mouse. */
void
ListWidget::scrollContentsBy(int dx, int dy)
{
	QListView::scrollContentsBy(dx, dy);
	fPeer->Scrolled();
}


/*!	While no row is the current one, any key would go to the first. */
QModelIndex
ListWidget::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
	if (action == MoveEnd && !currentIndex().isValid())
		return model()->index(model()->rowCount() - 1, 0);
	return QListView::moveCursor(action, modifiers);
}
