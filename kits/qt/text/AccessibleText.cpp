/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <AccessibleText.h>

#include <algorithm>

#include <QFontInfo>
#include <QTextBoundaryFinder>

#include <TextWidget.h>


// What a screen reader may say instead of an offset.
static const int kAtCaret = -2;


static QAccessibleInterface*
new_accessible_text(const QString&, QObject* object)
{
	TextWidget* widget = dynamic_cast<TextWidget*>(object);
	return widget != NULL ? new AccessibleText(widget) : NULL;
}


/*!	Whether a word or a sentence begins or ends there. */
static bool
is_edge(const QTextBoundaryFinder& finder)
{
	const QTextBoundaryFinder::BoundaryReasons kEdges = QTextBoundaryFinder::StartOfItem
		| QTextBoundaryFinder::EndOfItem;
	return (finder.boundaryReasons() & kEdges) != 0;
}


void
AccessibleText::Install()
{
	QAccessible::installFactory(new_accessible_text);
}


AccessibleText::AccessibleText(TextWidget* widget)
	: QAccessibleWidget(widget, QAccessible::EditableText)
{
}


QAccessible::State
AccessibleText::state() const
{
	QAccessible::State state = QAccessibleWidget::state();
	state.readOnly = true;
	state.multiLine = true;
	state.selectableText = true;
	return state;
}


void*
AccessibleText::interface_cast(QAccessible::InterfaceType type)
{
	if (type == QAccessible::TextInterface)
		return static_cast<QAccessibleTextInterface*>(this);
	return QAccessibleWidget::interface_cast(type);
}


QString
AccessibleText::text(QAccessible::Text kind) const
{
	return kind == QAccessible::Value ? text(0, characterCount()) : QAccessibleWidget::text(kind);
}


void
AccessibleText::selection(int index, int* _start, int* _end) const
{
	const bool exists = index < selectionCount();
	*_start = exists ? _Widget()->Caret().Start() : 0;
	*_end = exists ? _Widget()->Caret().End() : 0;
}


int
AccessibleText::selectionCount() const
{
	return _Widget()->Caret().HasSelection() ? 1 : 0;
}


/*!	What is selected is shown, as the caret is. */
void
AccessibleText::addSelection(int start, int end)
{
	_Widget()->Select(start, end);
	_Widget()->ScrollToPosition(cursorPosition());
}


void
AccessibleText::removeSelection(int index)
{
	if (index < selectionCount())
		setCursorPosition(cursorPosition());
}


void
AccessibleText::setSelection(int index, int start, int end)
{
	if (index == 0)
		addSelection(start, end);
}


int
AccessibleText::cursorPosition() const
{
	return _Widget()->Caret().Position();
}


void
AccessibleText::setCursorPosition(int position)
{
	addSelection(position, position);
}


QString
AccessibleText::text(int start, int end) const
{
	start = _Cut(start);
	end = _Cut(end);
	return start < end ? _Widget()->TextBetween(start, end) : QString();
}


QString
AccessibleText::textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary, int* _start,
	int* _end) const
{
	const Part part = _PartAt(_Cut(offset), boundary);
	if (part.start == 0)
		return _Take({0, 0}, _start, _end);
	return _Take(_PartAt(part.start - 1, boundary), _start, _end);
}


QString
AccessibleText::textAfterOffset(int offset, QAccessible::TextBoundaryType boundary, int* _start,
	int* _end) const
{
	const Part part = _PartAt(_Cut(offset), boundary);
	// The last line is not followed by itself.
	if (part.end == characterCount())
		return _Take({part.end, part.end}, _start, _end);
	return _Take(_PartAt(part.end, boundary), _start, _end);
}


QString
AccessibleText::textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* _start,
	int* _end) const
{
	return _Take(_PartAt(_Cut(offset), boundary), _start, _end);
}


int
AccessibleText::characterCount() const
{
	return _Widget()->Text().CountPositions();
}


/*!	\return In pixels of the screen. */
QRect
AccessibleText::characterRect(int offset) const
{
	const int32 position = _Cut(offset);
	QRect rect = _Widget()->PlaceOf(position).toRect();
	const QRect next = _Widget()->PlaceOf(_Cut(position + 1)).toRect();
	// At the end of a row the next character is somewhere else.
	if (next.top() == rect.top() && next.left() != rect.left())
		rect = rect.united(next).adjusted(0, 0, -1, 0);
	rect.moveTopLeft(_Widget()->viewport()->mapToGlobal(rect.topLeft()));
	return rect;
}


int
AccessibleText::offsetAtPoint(const QPoint& point) const
{
	const QPoint where = _Widget()->viewport()->mapFromGlobal(point);
	return _Widget()->viewport()->rect().contains(where) ? _Widget()->PositionAt(where) : -1;
}


void
AccessibleText::scrollToSubstring(int start, int end)
{
	_Widget()->ScrollToPosition(_Cut(end));
	_Widget()->ScrollToPosition(_Cut(start));
}


/*!	\param _start Where the run of characters with these attributes begins. */
QString
AccessibleText::attributes(int offset, int* _start, int* _end) const
{
	const TextStore& text = _Widget()->Text();
	const StyleRuns& styles = _Widget()->Styles();
	*_start = 0;
	*_end = 0;
	if (text.CountBytes() == 0)
		return QString();

	// Behind the last character a screen reader asks for what is before the caret.
	const int32 byte = std::min(text.OffsetAt(_Cut(offset)), text.CountBytes() - 1);
	const int32 run = styles.RunAt(byte);
	*_start = text.PositionAt(styles[run].offset);
	*_end = text.PositionAt(styles.EndOf(run));

	const QTextCharFormat& format = _Widget()->FormatOf(styles[run].style);
	QFont font = _Widget()->font();
	if (format.hasProperty(QTextFormat::FontPixelSize))
		font.setPixelSize(format.intProperty(QTextFormat::FontPixelSize));
	const QColor color = format.foreground().color();
	QString attributes = QStringLiteral("color:rgb(%1,%2,%3);font-family:\"%4\";font-size:%5pt;")
							 .arg(color.red())
							 .arg(color.green())
							 .arg(color.blue())
							 .arg(font.family())
							 .arg(QFontInfo(font).pointSize());
	if (format.fontWeight() >= QFont::Bold)
		attributes += QLatin1String("font-weight:bold;");
	if (format.fontItalic())
		attributes += QLatin1String("font-style:italic;");
	return attributes;
}


TextWidget*
AccessibleText::_Widget() const
{
	return static_cast<TextWidget*>(widget());
}


/*!	\return A position within the text. */
int32
AccessibleText::_Cut(int offset) const
{
	if (offset == kAtCaret)
		return cursorPosition();
	return offset < 0 ? characterCount() : std::min(offset, characterCount());
}


/*!	\return What an offset is in; empty behind the last character. The end of a line belongs to the
	line.
*/
AccessibleText::Part
AccessibleText::_PartAt(int32 offset, QAccessible::TextBoundaryType boundary) const
{
	const TextStore& text = _Widget()->Text();
	const int32 end = text.CountPositions();
	if (boundary == QAccessible::NoBoundary)
		return {0, end};
	if (offset >= end && boundary != QAccessible::LineBoundary
		&& boundary != QAccessible::ParagraphBoundary)
		return {end, end};

	const int32 line = text.LineAtPosition(offset);
	const int32 last = text.LastOfParagraph(line);
	const int32 start = text.PositionOf(text.FirstOfParagraph(line));
	const int32 length = text.PositionOf(last) + text.CountPositionsOf(last) - start;
	const Part whole = {start, std::min(start + length + 1, end)};
	switch (boundary) {
		case QAccessible::ParagraphBoundary:
			return whole;
		case QAccessible::LineBoundary:
		{
			const TextCaret::Range row = _Widget()->RowAt(offset);
			return {row.start, row.end == start + length ? whole.end : row.end};
		}
		default:
			break;
	}
	// The end of the paragraph is a part by itself.
	if (offset - start >= length)
		return {start + length, whole.end};
	const Part part = _PartOfParagraph(line, offset - start, boundary);
	return {start + part.start, start + part.end};
}


/*!	\param line One of the paragraph.
	\param offset From the start of the paragraph, as the result is.
*/
AccessibleText::Part
AccessibleText::_PartOfParagraph(int32 line, int32 offset,
	QAccessible::TextBoundaryType boundary) const
{
	const QString text = QString::fromStdU16String(_Widget()->Text().TextOfParagraph(line));
	QTextBoundaryFinder::BoundaryType type = QTextBoundaryFinder::Grapheme;
	if (boundary == QAccessible::WordBoundary)
		type = QTextBoundaryFinder::Word;
	else if (boundary == QAccessible::SentenceBoundary)
		type = QTextBoundaryFinder::Sentence;
	const bool isCharacter = type == QTextBoundaryFinder::Grapheme;

	QTextBoundaryFinder finder(type, text);
	finder.setPosition(offset);
	if (!(isCharacter ? finder.isAtBoundary() : is_edge(finder))) {
		while (finder.toPreviousBoundary() > 0 && !isCharacter && !is_edge(finder))
			continue;
	}
	const int32 start = std::max(static_cast<int32>(finder.position()), 0);
	finder.setPosition(offset);
	while (finder.toNextBoundary() >= 0 && !isCharacter && !is_edge(finder))
		continue;
	const qsizetype end = finder.position() < 0 ? text.size() : finder.position();
	return {start, static_cast<int32>(end)};
}


QString
AccessibleText::_Take(const Part& part, int* _start, int* _end) const
{
	*_start = part.start;
	*_end = part.end;
	return text(part.start, part.end);
}
