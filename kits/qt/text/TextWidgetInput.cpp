/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// What the user does with a text: keyboard, mouse and clipboard.

#include <TextWidget.h>

#include <algorithm>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDrag>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>


// While the mouse selects beyond the edge: in milliseconds for a row.
static const int kSlowest = 100;
static const int kFastest = 10;


struct KeyStep {
	QKeySequence::StandardKey key;
	TextCaret::Step step;
	bool extends;
};


static const KeyStep kKeySteps[] = {
	{QKeySequence::MoveToPreviousChar, TextCaret::kLeft, false},
	{QKeySequence::MoveToNextChar, TextCaret::kRight, false},
	{QKeySequence::MoveToPreviousWord, TextCaret::kWordLeft, false},
	{QKeySequence::MoveToNextWord, TextCaret::kWordRight, false},
	{QKeySequence::MoveToPreviousLine, TextCaret::kRowUp, false},
	{QKeySequence::MoveToNextLine, TextCaret::kRowDown, false},
	{QKeySequence::MoveToPreviousPage, TextCaret::kPageUp, false},
	{QKeySequence::MoveToNextPage, TextCaret::kPageDown, false},
	{QKeySequence::MoveToStartOfLine, TextCaret::kRowStart, false},
	{QKeySequence::MoveToEndOfLine, TextCaret::kRowEnd, false},
	{QKeySequence::MoveToStartOfDocument, TextCaret::kTextStart, false},
	{QKeySequence::MoveToEndOfDocument, TextCaret::kTextEnd, false},
	{QKeySequence::SelectPreviousChar, TextCaret::kLeft, true},
	{QKeySequence::SelectNextChar, TextCaret::kRight, true},
	{QKeySequence::SelectPreviousWord, TextCaret::kWordLeft, true},
	{QKeySequence::SelectNextWord, TextCaret::kWordRight, true},
	{QKeySequence::SelectPreviousLine, TextCaret::kRowUp, true},
	{QKeySequence::SelectNextLine, TextCaret::kRowDown, true},
	{QKeySequence::SelectPreviousPage, TextCaret::kPageUp, true},
	{QKeySequence::SelectNextPage, TextCaret::kPageDown, true},
	{QKeySequence::SelectStartOfLine, TextCaret::kRowStart, true},
	{QKeySequence::SelectEndOfLine, TextCaret::kRowEnd, true},
	{QKeySequence::SelectStartOfDocument, TextCaret::kTextStart, true},
	{QKeySequence::SelectEndOfDocument, TextCaret::kTextEnd, true},
};


/*!	\param distance From the edge, in pixels. The further away, the faster. */
static int
scroll_interval(int distance)
{
	const int kNear = 7;
	if (distance <= kNear)
		return kSlowest;
	return std::max(kSlowest * kNear * kNear / (distance * distance), kFastest);
}


/*!	\return NULL for a key that moves nothing. */
static const KeyStep*
step_of_key(const QKeyEvent* event)
{
	for (const KeyStep& step : kKeySteps) {
		if (event->matches(step.key))
			return &step;
	}
	return NULL;
}


/*!	Whether a window's shortcuts have to leave the key alone. */
bool
TextWidget::_Wants(const QKeyEvent* event) const
{
	return fIsSelectable
		&& (event->matches(QKeySequence::Copy) || event->matches(QKeySequence::SelectAll)
			|| step_of_key(event) != NULL);
}


void
TextWidget::keyPressEvent(QKeyEvent* event)
{
	if (event->key() == Qt::Key_Space) {
		const bool isUp = (event->modifiers() & Qt::ShiftModifier) != 0;
		verticalScrollBar()->triggerAction(
			isUp ? QAbstractSlider::SliderPageStepSub : QAbstractSlider::SliderPageStepAdd);
		return;
	}
	if (!_Wants(event)) {
		if (event->matches(QKeySequence::MoveToStartOfLine))
			verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);
		else if (event->matches(QKeySequence::MoveToEndOfLine))
			verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
		else
			QAbstractScrollArea::keyPressEvent(event);
		return;
	}
	const KeyStep* step = step_of_key(event);
	if (step != NULL) {
		const bool isUp = step->step == TextCaret::kPageUp;
		const int32 page = isUp ? fPage.CountRowsAbove() : fPage.CountRowsSeen();
		fCaret.Go(step->step, step->extends, page);
		if (isUp)
			fPage.ScrollBy(-page);
		else if (step->step == TextCaret::kPageDown)
			fPage.ScrollBy(page);
		_CaretMoved();
		ScrollToPosition(fCaret.Position());
	} else if (event->matches(QKeySequence::SelectAll)) {
		_SelectAll();
	} else {
		_Copy();
	}
}


void
TextWidget::focusInEvent(QFocusEvent* event)
{
	QAbstractScrollArea::focusInEvent(event);
	viewport()->update();
}


void
TextWidget::focusOutEvent(QFocusEvent* event)
{
	QAbstractScrollArea::focusOutEvent(event);
	viewport()->update();
}


/*!	Once sets the caret, shift extends the selection, a third click selects the line. Selected text
	can be dragged elsewhere.
*/
void
TextWidget::mousePressEvent(QMouseEvent* event)
{
	if (event->button() != Qt::LeftButton || !fIsSelectable) {
		event->ignore();
		return;
	}
	const QPoint where = event->position().toPoint();
	const int32 position = PositionAt(where);
	const bool isThird = fTripleClick.isActive()
		&& (where - fPressed).manhattanLength() < QApplication::startDragDistance();
	fTripleClick.stop();
	fPressed = where;
	fMouse = kSelecting;
	if (isThird) {
		fCaret.BeginAt(position, TextCaret::kLine);
	} else if ((event->modifiers() & Qt::ShiftModifier) != 0) {
		fCaret.ExtendTo(_DragPosition(where));
	} else if (position > fCaret.Start() && position < fCaret.End()) {
		fMouse = kAboutToDrag;
		return;
	} else {
		fCaret.BeginAt(position, TextCaret::kCharacter);
	}
	_CaretMoved();
}


void
TextWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
	if (event->button() != Qt::LeftButton || !fIsSelectable) {
		event->ignore();
		return;
	}
	fPressed = event->position().toPoint();
	fTripleClick.start(QApplication::doubleClickInterval(), this);
	fMouse = kSelecting;
	fCaret.BeginAt(fPage.PositionAt(fPressed, QTextLine::CursorOnCharacter), TextCaret::kWord);
	_CaretMoved();
}


void
TextWidget::mouseMoveEvent(QMouseEvent* event)
{
	const QPoint where = event->position().toPoint();
	if (fMouse == kAboutToDrag) {
		if ((where - fPressed).manhattanLength() >= QApplication::startDragDistance())
			_StartDrag();
		return;
	}
	if (fMouse != kSelecting)
		return;
	const int distance = std::max(-where.y(), where.y() - viewport()->height() + 1);
	if (distance > 0)
		fAutoScroll.start(scroll_interval(distance), this);
	else
		fAutoScroll.stop();
	fDragged = where;
	fCaret.DragTo(_DragPosition(where));
	_CaretMoved();
}


void
TextWidget::mouseReleaseEvent(QMouseEvent* event)
{
	if (event->button() != Qt::LeftButton || fMouse == kNothing) {
		event->ignore();
		return;
	}
	// It was a click into the selection after all.
	if (fMouse == kAboutToDrag) {
		const int32 position = PositionAt(fPressed);
		Select(position, position);
	}
	fMouse = kNothing;
	fAutoScroll.stop();
	_OwnSelection();
}


void
TextWidget::timerEvent(QTimerEvent* event)
{
	if (event->timerId() == fTripleClick.timerId()) {
		fTripleClick.stop();
		return;
	}
	if (event->timerId() != fAutoScroll.timerId()) {
		QAbstractScrollArea::timerEvent(event);
		return;
	}
	if (fDragged.y() < 0)
		verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
	else if (fDragged.y() >= viewport()->height())
		verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
	fCaret.DragTo(_DragPosition(fDragged));
	_CaretMoved();
}


void
TextWidget::contextMenuEvent(QContextMenuEvent* event)
{
	if (!fIsSelectable) {
		event->ignore();
		return;
	}
	QMenu* menu = new QMenu(this);
	menu->setAttribute(Qt::WA_DeleteOnClose);
	QAction* copy = menu->addAction(QIcon::fromTheme(QStringLiteral("edit-copy")),
		QApplication::translate("QWidgetTextControl", "&Copy"), this, [this]() {
			_Copy();
		});
	copy->setShortcut(QKeySequence::Copy);
	copy->setEnabled(fCaret.HasSelection());
	menu->addSeparator();
	QAction* all = menu->addAction(QIcon::fromTheme(QStringLiteral("edit-select-all")),
		QApplication::translate("QWidgetTextControl", "Select All"), this, [this]() {
			_SelectAll();
		});
	all->setShortcut(QKeySequence::SelectAll);
	all->setEnabled(fText.CountPositions() > 0);

	QPoint place = event->globalPos();
	if (event->reason() == QContextMenuEvent::Keyboard)
		place = viewport()->mapToGlobal(PlaceOf(fCaret.Position()).bottomLeft().toPoint());
	menu->popup(place);
}


int32
TextWidget::_DragPosition(const QPointF& where)
{
	return fPage.PositionAt(where,
		fCaret.SelectsUnits() ? QTextLine::CursorOnCharacter : QTextLine::CursorBetweenCharacters);
}


/*!	Or what is selected is another part of the text. */
void
TextWidget::_CaretMoved()
{
	fUnselected.reset();
	viewport()->update();
	if (!QAccessible::isActive())
		return;
	if (fCaret.HasSelection()) {
		QAccessibleTextSelectionEvent event(this, fCaret.Start(), fCaret.End());
		event.setCursorPosition(fCaret.Position());
		QAccessible::updateAccessibility(&event);
	} else {
		QAccessibleTextCursorEvent event(this, fCaret.Position());
		QAccessible::updateAccessibility(&event);
	}
}


/*!	The client has not selected it again since the last frame. */
void
TextWidget::_TellUnselected()
{
	if (fUnselected.has_value())
		_CaretMoved();
}


void
TextWidget::_SelectAll()
{
	Select(0, fText.CountPositions());
	_OwnSelection();
}


void
TextWidget::_Copy() const
{
	if (fCaret.HasSelection())
		QApplication::clipboard()->setText(TextBetween(fCaret.Start(), fCaret.End()));
}


/*!	What is selected is what the middle mouse button pastes, on systems that know that. */
void
TextWidget::_OwnSelection() const
{
	QClipboard* clipboard = QApplication::clipboard();
	if (clipboard->supportsSelection() && fCaret.HasSelection())
		clipboard->setText(TextBetween(fCaret.Start(), fCaret.End()), QClipboard::Selection);
}


void
TextWidget::_StartDrag()
{
	fMouse = kNothing;
	QMimeData* text = new QMimeData;
	text->setText(TextBetween(fCaret.Start(), fCaret.End()));
	QDrag* drag = new QDrag(this);
	drag->setMimeData(text);
	drag->exec(Qt::CopyAction);
}
