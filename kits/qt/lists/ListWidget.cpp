/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ListWidget.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include <FocusBorder.h>
#include <ListViewPeer.h>
#include <Window.h>


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


/*!	The page keys scroll, and leave the selection where it is. */
void
ListWidget::keyPressEvent(QKeyEvent* event)
{
	switch (event->key()) {
		case Qt::Key_Return:
		case Qt::Key_Enter:
			_PressReturn(event);
			break;
		case Qt::Key_Space:
			_Invoke(event);
			break;
		case Qt::Key_PageUp:
			verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
			break;
		case Qt::Key_PageDown:
			verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
			break;
		default:
			// QListView makes the first row the current one when the list gets the focus. The
			// arrows would go on from there, though the user sees no row selected.
			if (!selectionModel()->hasSelection())
				selectionModel()->clearCurrentIndex();
			QListView::keyPressEvent(event);
	}
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


/*!	Return invokes the selected rows, unless the window has a default button: then it is that one's.
*/
void
ListWidget::_PressReturn(QKeyEvent* event)
{
	const BWindow* window = fPeer->View()->Window();
	const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
	if (isPlain && window != NULL && window->DefaultButton() != NULL)
		event->ignore();
	else
		_Invoke(event);
}


void
ListWidget::_Invoke(const QKeyEvent* event)
{
	if (!event->isAutoRepeat())
		fPeer->InvokeSelection();
}
