/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextWidget.h>

#include <algorithm>

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QScrollBar>
#include <QStyle>

#include <AccessibleText.h>
#include <FocusBorder.h>
#include <TextConversion.h>


/*!	\return Where an offset is after a change before it. */
static int32
moved_offset(int32 offset, int32 changed, int32 removed, int32 length)
{
	if (offset <= changed)
		return offset;
	return std::max(offset + length - removed, changed);
}


TextWidget::TextWidget()
	: fText(characters_join),
	  fLayout(&fText, &fStyles),
	  fPage(&fText, &fLayout),
	  fCaret(&fText, &fLayout),
	  fIsSelectable(false),
	  fIsFull(false),
	  fFollowsEnd(false),
	  fIsUpdating(false),
	  fTold(0),
	  fKeptPosition(0),
	  fKeptRow(-1),
	  fMouse(kNothing)
{
	AccessibleText::Install();
	fLayout.SetFont(font());
	setFrameShape(QFrame::NoFrame);
	setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
	setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
	connect(verticalScrollBar(), &QAbstractSlider::actionTriggered, this, &TextWidget::_Step);
}


/*!	\return The text between two positions, with a line feed for each hard end of a line. */
QString
TextWidget::TextBetween(int32 start, int32 end) const
{
	QString text;
	const int32 last = fText.LineAtPosition(end);
	for (int32 i = fText.LineAtPosition(start); i <= last; i++) {
		const int32 origin = fText.PositionOf(i);
		const int32 from = std::max(start - origin, 0);
		text += QString::fromStdU16String(fText.TextOf(i)).mid(from, end - origin - from);
		if (i < last && !fText.EndsSoftly(i))
			text += QLatin1Char('\n');
	}
	return text;
}


/*!	\return Whether there is memory for so many bytes more: then Replace() may add them. */
bool
TextWidget::MakeRoom(const char* bytes, int32 length)
{
	const TextRoom room(fIsFull);
	const bool hasRoom = fText.MakeRoom(room, bytes, length) && fStyles.MakeRoom(room)
		&& fLayout.MakeRoom(room, fText.CountEnds(bytes, length));
	fIsFull = fIsFull || !hasRoom;
	return hasRoom;
}


/*!	Puts bytes of one style in the place of others. The selection stays with its text; nothing that
	comes at its end joins it.
*/
void
TextWidget::Replace(int32 offset, int32 removed, const char* bytes, int32 length, int32 style)
{
	if (offset == fText.CountBytes()) {
		_Append(bytes, length, style);
		return;
	}

	_TellAppended();
	_TellUnselected();
	fKeptRow = -1;
	const int32 top = moved_offset(fText.OffsetAt(fPage.TopPosition()), offset, removed, length);
	const int32 anchor = moved_offset(fText.OffsetAt(fCaret.Anchor()), offset, removed, length);
	const int32 caret = moved_offset(fText.OffsetAt(fCaret.Position()), offset, removed, length);
	const int32 position = fText.PositionAt(offset);
	const int32 end = fText.PositionAt(offset + removed);
	const QString gone = QAccessible::isActive() ? TextBetween(position, end) : QString();
	const int32 after = fText.CountPositions() - end;
	const int32 first = fText.Replace(offset, removed, bytes, length);
	fStyles.Replace(offset, removed, length, style);
	fLayout.LinesChanged(first);
	fPage.RowsChanged(fText.PositionAt(top));
	fCaret.Set(fText.PositionAt(anchor), fText.PositionAt(caret));
	fTold = fText.CountPositions();
	_TellExchanged(position, gone, std::max(fText.CountPositions() - after - position, 0));
}


void
TextWidget::SetStyle(int32 start, int32 end, int32 style)
{
	const int32 top = fPage.TopPosition();
	fStyles.SetStyle(start, end, style);
	fLayout.StylesChanged(fText.LineAtOffset(start), fText.LineAtOffset(end));
	fPage.RowsChanged(top);
}


void
TextWidget::ShowChanges()
{
	_TellAppended();
	_TellUnselected();
	_UpdateView();
}


/*!	\param style One that has a format, or the number after them. */
void
TextWidget::SetFormatOf(int32 style, const QTextCharFormat& format)
{
	fLayout.SetFormatOf(style, format);
}


/*!	Without it, what is longer than the view is wide is cut off. */
void
TextWidget::SetWordWrap(bool wrap)
{
	const bool follow = _KeepPlace();
	fLayout.SetWraps(wrap);
	_RowsChanged(follow);
}


/*!	By mouse and keyboard. */
void
TextWidget::SetSelectable(bool selectable)
{
	fIsSelectable = selectable;
	viewport()->setCursor(selectable ? Qt::IBeamCursor : Qt::ArrowCursor);
	viewport()->update();
}


void
TextWidget::Select(int32 anchor, int32 position)
{
	fCaret.Set(anchor, position);
	_CaretMoved();
}


void
TextWidget::SelectForClient(int32 start, int32 end)
{
	if (fUnselected.has_value() && fUnselected->Start() == start && fUnselected->End() == end) {
		fCaret = *fUnselected;
		fUnselected.reset();
		viewport()->update();
		return;
	}

	if (fCaret.HasSelection() && start == fCaret.Start() && end == start) {
		fUnselected = fCaret;
		fCaret.Unselect();
		return;
	}

	fCaret.Set(start, end);
	_CaretMoved();
}


void
TextWidget::ScrollToPosition(int32 position)
{
	fPage.ScrollToPosition(position);
	_UpdateView();
}


/*!	The text is another one now, which is read from its start. */
void
TextWidget::ScrollToStart()
{
	fFollowsEnd = false;
	fPage.ScrollTo(0);
	_UpdateView();
}


void
TextWidget::ScrollToEnd()
{
	_TellAppended();
	_TellUnselected();
	fFollowsEnd = true;
	fPage.ScrollToEnd();
	_UpdateView();
}


bool
TextWidget::event(QEvent* event)
{
	if (event->type() == QEvent::ShortcutOverride && _Wants(static_cast<QKeyEvent*>(event))) {
		event->accept();
		return true;
	}
	const bool result = QAbstractScrollArea::event(event);
	show_focus_by_border(this, event);
	return result;
}


void
TextWidget::changeEvent(QEvent* event)
{
	QAbstractScrollArea::changeEvent(event);
	if (event->type() != QEvent::FontChange)
		return;
	const bool follow = _KeepPlace();
	fLayout.SetFont(font());
	_RowsChanged(follow);
}


void
TextWidget::resizeEvent(QResizeEvent* event)
{
	QAbstractScrollArea::resizeEvent(event);
	const bool follow = _KeepPlace();
	fPage.SetHeight(viewport()->height());
	fLayout.SetWidth(viewport()->width() - 2 * TextPage::kMargin);
	_RowsChanged(follow);
}


/*!	The scroll bar has another value. */
void
TextWidget::scrollContentsBy(int /*dx*/, int /*dy*/)
{
	if (fIsUpdating)
		return;
	fPage.ScrollTo(verticalScrollBar()->value());
	_UpdateView();
}


void
TextWidget::paintEvent(QPaintEvent* event)
{
	QPainter painter(viewport());
	// Of the rows above the page nothing is seen in the margin.
	painter.setClipRect(
		event->rect().intersected(viewport()->rect().adjusted(0, TextPage::kMargin, 0, 0)));
	painter.setPen(palette().color(QPalette::Text));
	const QRectF clip(event->rect());
	const bool hasCaret = fIsSelectable && hasFocus();
	const int32 caretLine = hasCaret ? fText.LineAtPosition(fCaret.Position()) : -1;
	for (const TextPage::SeenLine& seen : fPage.SeenLines()) {
		QTextLayout* line = fLayout.Line(seen.line);
		const QPointF origin(TextPage::kMargin, seen.top);
		line->draw(&painter, origin, _SelectionIn(seen.line), clip);
		if (seen.line == caretLine) {
			line->drawCursor(&painter, origin, fCaret.Position() - fText.PositionOf(caretLine),
				style()->pixelMetric(QStyle::PM_TextCursorWidth));
		}
	}
}


void
TextWidget::wheelEvent(QWheelEvent* event)
{
	fPage.LookAbove();
	_UpdateView();
	QAbstractScrollArea::wheelEvent(event);
}


/*!	The page has been scrolled, or the text has changed: brings the scroll bar and the screen up to
	date.
*/
void
TextWidget::_UpdateView()
{
	// What is seen is laid out first, which may change which rows those are.
	static_cast<void>(fPage.SeenLines());
	const int32 last = fPage.LastTopRow();
	if (fPage.TopRow() > last)
		fPage.ScrollToEnd();
	fPage.Tidy();

	fIsUpdating = true;
	QScrollBar* bar = verticalScrollBar();
	bar->setPageStep(fPage.CountRowsPerPage());
	bar->setRange(0, last);
	bar->setValue(fPage.TopRow());
	fIsUpdating = false;
	viewport()->update();
}


/*!	Before all lines are laid out anew: remembers what is at the top. The row that has it then may
	begin before it, and the next time that is not what is remembered: a window that is resized in
	many small steps would scroll up.
	\return Whether the end is what is kept in view.
*/
bool
TextWidget::_KeepPlace()
{
	const int32 top = fPage.TopPosition();
	if (top != fKeptRow)
		fKeptPosition = top;
	return fFollowsEnd && fPage.IsAtEnd();
}


void
TextWidget::_RowsChanged(bool follow)
{
	fPage.RowsChanged(fKeptPosition);
	_UpdateView();
	fKeptRow = fPage.TopPosition();
	if (follow)
		ScrollToEnd();
}


/*!	The scroll bar is about to go a step: from where the page is by now, which depends on how the
	lines above are wrapped.
*/
void
TextWidget::_Step(int action)
{
	QScrollBar* bar = verticalScrollBar();
	int step = 0;
	switch (action) {
		case QAbstractSlider::SliderSingleStepSub:
			step = -bar->singleStep();
			break;
		case QAbstractSlider::SliderSingleStepAdd:
			step = bar->singleStep();
			break;
		case QAbstractSlider::SliderPageStepSub:
			step = -fPage.CountRowsAbove();
			break;
		case QAbstractSlider::SliderPageStepAdd:
			step = fPage.CountRowsSeen();
			break;
		default:
			return;
	}
	if (step < 0)
		fPage.LookAbove();
	_UpdateView();
	bar->setSliderPosition(bar->value() + step);
}


/*!	The caret stays as it is, except that bytes before it may have become a character. */
void
TextWidget::_Append(const char* bytes, int32 length, int32 style)
{
	const int32 offset = fText.CountBytes();
	const bool mayComplete = offset > 0 && static_cast<uint8>(fText.Bytes()[offset - 1]) >= 0x80;
	const int32 first = fText.Replace(offset, 0, bytes, length);
	fStyles.Replace(offset, 0, length, style);
	fLayout.LinesChanged(first);
	fPage.LinesChanged(first);
	if (mayComplete) {
		fCaret.Set(fCaret.Anchor(), fCaret.Position());
		_TellUnselected();
	}
}


QList<QTextLayout::FormatRange>
TextWidget::_SelectionIn(int32 line) const
{
	const int32 origin = fText.PositionOf(line);
	const int32 start = std::max(fCaret.Start() - origin, 0);
	// With the end of the line, which is seen too unless it is a soft one.
	const int32 length = fText.CountPositionsOf(line) + (fText.EndsSoftly(line) ? 0 : 1);
	const int32 end = std::min(fCaret.End() - origin, length);
	if (start >= end)
		return {};
	const QPalette::ColorGroup group = hasFocus() ? QPalette::Active : QPalette::Inactive;
	QTextLayout::FormatRange range;
	range.start = start;
	range.length = end - start;
	range.format.setBackground(palette().brush(group, QPalette::Highlight));
	range.format.setForeground(palette().brush(group, QPalette::HighlightedText));
	return {range};
}


/*!	Screen readers hear of what is appended with the frame that shows it. */
void
TextWidget::_TellAppended()
{
	const int32 from = std::min(fTold, fText.CountPositions());
	fTold = fText.CountPositions();
	_TellExchanged(from, QString(), fTold - from);
}


void
TextWidget::_TellExchanged(int32 position, const QString& removed, int32 added)
{
	if (!QAccessible::isActive())
		return;
	if (!removed.isEmpty()) {
		QAccessibleTextRemoveEvent event(this, position, removed);
		QAccessible::updateAccessibility(&event);
	}
	if (added > 0) {
		QAccessibleTextInsertEvent event(this, position, TextBetween(position, position + added));
		QAccessible::updateAccessibility(&event);
	}
}
