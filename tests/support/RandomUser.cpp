/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RandomUser.h"

#include <algorithm>

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPixmap>
#include <QScrollBar>
#include <QWheelEvent>

#include <ViewPeer.h>


// Beyond the edges, in pixels.
static const int kBeyond = 30;

static const int kKeys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home,
	Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Space, Qt::Key_A, Qt::Key_C,
	Qt::Key_Backspace};

static const QAccessible::TextBoundaryType kBoundaries[] = {QAccessible::CharBoundary,
	QAccessible::WordBoundary, QAccessible::SentenceBoundary, QAccessible::ParagraphBoundary,
	QAccessible::LineBoundary, QAccessible::NoBoundary};


RandomUser::RandomUser(BView* text, uint32 seed)
	: fWidget(ViewPeer::Of(text)->Widget()),
	  fViewport(qobject_cast<QAbstractScrollArea*>(fWidget)->viewport()),
	  fRandom(seed)
{
}


int32
RandomUser::Number(int32 limit)
{
	return static_cast<int32>(fRandom() % static_cast<uint32>(limit));
}


void
RandomUser::PressKey()
{
	const int key = kKeys[Number(static_cast<int32>(std::size(kKeys)))];
	Qt::KeyboardModifiers modifiers;
	modifiers.setFlag(Qt::ShiftModifier, Number(2) == 0);
	modifiers.setFlag(Qt::ControlModifier, Number(3) == 0);
	QKeyEvent press(QEvent::KeyPress, key, modifiers);
	QApplication::sendEvent(fWidget, &press);
}


/*!	Selected text is not dragged away, as nobody would let go of it. */
void
RandomUser::MoveMouse()
{
	static const QEvent::Type kTypes[] = {QEvent::MouseButtonPress, QEvent::MouseButtonDblClick,
		QEvent::MouseMove, QEvent::MouseButtonRelease};
	const QPoint where(Number(fViewport->width() + 2 * kBeyond) - kBeyond,
		Number(fViewport->height() + 2 * kBeyond) - kBeyond);
	const auto send = [this, where](QEvent::Type type, Qt::MouseButton button) {
		const Qt::KeyboardModifiers modifiers = Number(3) == 0 ? Qt::ShiftModifier : Qt::NoModifier;
		QMouseEvent event(type, where, fViewport->mapToGlobal(where), button, Qt::LeftButton,
			modifiers);
		QApplication::sendEvent(fViewport, &event);
	};
	const QEvent::Type type = kTypes[Number(static_cast<int32>(std::size(kTypes)))];
	if (type == QEvent::MouseMove)
		send(QEvent::MouseButtonDblClick, Qt::LeftButton);
	send(type, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton);
}


void
RandomUser::TurnWheel()
{
	const QPoint angle(0, (Number(9) - 4) * 120);
	const QPoint where = fViewport->rect().center();
	QWheelEvent event(where, fViewport->mapToGlobal(where), QPoint(), angle, Qt::NoButton,
		Qt::NoModifier, Qt::NoScrollPhase, false);
	QApplication::sendEvent(fViewport, &event);
}


void
RandomUser::ScrollBar()
{
	QScrollBar* bar = qobject_cast<QAbstractScrollArea*>(fWidget)->verticalScrollBar();
	if (Number(3) == 0)
		bar->setValue(Number(bar->maximum() + 1));
	else
		bar->triggerAction(QAbstractSlider::SliderAction(Number(QAbstractSlider::SliderMove)));
}


QAccessibleTextInterface*
RandomUser::_Reader() const
{
	return QAccessible::queryAccessibleInterface(fWidget)->textInterface();
}


/*!	May lie outside of the text. */
int
RandomUser::_AnyOffset()
{
	return Number(_Reader()->characterCount() + 6) - 3;
}


void
RandomUser::UseScreenReader()
{
	QAccessibleTextInterface* reader = _Reader();
	const int offset = _AnyOffset();
	int start = 0;
	int end = 0;
	switch (Number(6)) {
		case 0:
			for (const QAccessible::TextBoundaryType boundary : kBoundaries) {
				static_cast<void>(reader->textBeforeOffset(offset, boundary, &start, &end));
				static_cast<void>(reader->textAtOffset(offset, boundary, &start, &end));
				static_cast<void>(reader->textAfterOffset(offset, boundary, &start, &end));
			}
			break;
		case 1:
			static_cast<void>(reader->characterRect(offset));
			static_cast<void>(reader->attributes(offset, &start, &end));
			break;
		case 2:
			reader->setCursorPosition(offset);
			break;
		case 3:
			reader->setSelection(0, offset, _AnyOffset());
			break;
		case 4:
			reader->scrollToSubstring(offset, _AnyOffset());
			break;
		default:
			reader->removeSelection(0);
			break;
	}
}


void
RandomUser::Look()
{
	static_cast<void>(fWidget->grab());
}


std::string
RandomUser::Complaint(const std::string& text)
{
	QAccessibleTextInterface* reader = _Reader();
	const int count = reader->characterCount();
	const QString shown = reader->text(0, count);
	if (shown.size() != count)
		return "the text is not as long as it says";
	if (shown.toStdString() != text)
		return "another text";
	int ends[] = {0, 0, reader->cursorPosition()};
	reader->selection(0, &ends[0], &ends[1]);
	for (const int end : ends) {
		if (end < 0 || end > count)
			return "the caret is outside of the text";
		if (end < count && shown[end].isLowSurrogate())
			return "the caret is inside of a character";
	}
	QScrollBar* bar = qobject_cast<QAbstractScrollArea*>(fWidget)->verticalScrollBar();
	if (bar->minimum() != 0 || bar->maximum() < 0 || bar->pageStep() < 1)
		return "the scroll bar has no sensible range";
	return _PlaceComplaint();
}


/*!	Where a seen character is said to be is where it is. */
std::string
RandomUser::_PlaceComplaint()
{
	const QRect screen(fViewport->mapToGlobal(QPoint(0, 0)), fViewport->size());
	if (screen.isEmpty())
		return std::string();
	const QPoint point(screen.left() + Number(screen.width()),
		screen.top() + Number(screen.height()));
	const int position = _Reader()->offsetAtPoint(point);
	if (position < 0 || position > _Reader()->characterCount())
		return "there is no character at a point of the view";
	// The end of a wrapped row is where the next one begins. Spaces at its end are wider than the
	// view.
	for (const int near : {position, position - 1}) {
		const QRect place = _Reader()->characterRect(std::max(near, 0));
		if (place.bottom() >= screen.top() && place.top() <= screen.bottom())
			return std::string();
	}
	return "a seen character is said to be outside";
}
