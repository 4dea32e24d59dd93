/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextCaret.h>

#include <algorithm>

#include <QTextBoundaryFinder>

#include <TextConversion.h>


TextCaret::TextCaret(const TextStore* text, TextLayout* layout)
	: fText(text),
	  fLayout(layout),
	  fPosition(0),
	  fAnchor(0),
	  fColumn(-1),
	  fIsAtEdge(false),
	  fUnit(kCharacter),
	  fFirstUnit{0, 0}
{
}


void
TextCaret::Set(int32 anchor, int32 position)
{
	fAnchor = _Cut(anchor);
	fPosition = _Cut(position);
	fColumn = -1;
}


void
TextCaret::Unselect()
{
	fAnchor = Start();
	fPosition = fAnchor;
	fColumn = -1;
}


/*!	What is selected is left to the side that the step goes to; up and down where nothing follows
	leave all as it is.
*/
void
TextCaret::Go(Step step, bool extends, int32 rowsPerPage)
{
	if (!extends && HasSelection() && (step == kLeft || step == kRight)) {
		const int32 side = _IsForward(step == kRight) ? End() : Start();
		BeginAt(side, kCharacter);
		return;
	}
	const bool isRow = step == kRowUp || step == kRowDown;
	const int32 target = _Target(step, rowsPerPage);
	if (isRow && !extends && fIsAtEdge)
		return;

	const qreal column = fColumn;
	BeginAt(extends ? fAnchor : target, kCharacter);
	DragTo(target);
	if ((isRow || step == kPageUp || step == kPageDown) && !fIsAtEdge)
		fColumn = column;
}


void
TextCaret::BeginAt(int32 position, Unit unit)
{
	fUnit = unit;
	fFirstUnit = _UnitAt(position);
	Set(fFirstUnit.start, fFirstUnit.end);
}


/*!	From where it began, in the units in which it was selected if the mouse has done so. */
void
TextCaret::ExtendTo(int32 position)
{
	if (fAnchor != fFirstUnit.start && fAnchor != fFirstUnit.end)
		BeginAt(fAnchor, kCharacter);
	DragTo(position);
}


void
TextCaret::DragTo(int32 position)
{
	const Range unit = _UnitAt(position);
	if (unit.start < fFirstUnit.start)
		Set(fFirstUnit.end, unit.start);
	else
		Set(fFirstUnit.start, std::max(unit.end, fFirstUnit.end));
}


TextCaret::Range
TextCaret::RowAt(int32 position) const
{
	const int32 number = fText->LineAtPosition(position);
	const int32 start = fText->PositionOf(number);
	const QTextLine row = fLayout->Line(number)->lineForTextPosition(position - start);
	if (!row.isValid())
		return {position, position};
	return {start + row.textStart(), start + row.textStart() + row.textLength()};
}


int32
TextCaret::_Target(Step step, int32 rowsPerPage)
{
	switch (step) {
		case kLeft:
			return _Across(false, QTextLayout::SkipCharacters);
		case kRight:
			return _Across(true, QTextLayout::SkipCharacters);
		case kWordLeft:
			return _Across(false, QTextLayout::SkipWords);
		case kWordRight:
			return _Across(true, QTextLayout::SkipWords);
		case kRowUp:
			return _ByRows(-1);
		case kRowDown:
			return _ByRows(1);
		case kPageUp:
			return _ByRows(-rowsPerPage);
		case kPageDown:
			return _ByRows(rowsPerPage);
		case kRowStart:
			return RowAt(fPosition).start;
		case kRowEnd:
			return _EndOfRow();
		case kTextStart:
			return 0;
		case kTextEnd:
			return fText->CountPositions();
	}
	return fPosition;
}


/*!	In the order in which the line is read: to the left is forwards in a line of Hebrew. */
int32
TextCaret::_Across(bool toTheRight, QTextLayout::CursorMode mode) const
{
	const int32 number = fText->LineAtPosition(fPosition);
	const int32 first = fText->FirstOfParagraph(number);
	const bool isDivided = first != number || fText->EndsSoftly(number);
	const QTextLayout* line = fLayout->Line(number);
	int32 origin = fText->PositionOf(number);
	// A word may go on behind a soft end, and before one there is a character. Looking for them lays
	// nothing out.
	QTextLayout paragraph;
	if (isDivided && (mode == QTextLayout::SkipWords || fPosition == origin)) {
		const std::u16string text = fText->TextOfParagraph(number);
		paragraph.setText(shown_text(QString::fromStdU16String(text)));
		line = &paragraph;
		origin = fText->PositionOf(first);
	}
	const int from = fPosition - origin;
	const bool isForward = _IsForward(toTheRight);
	const int to = isForward ? line->nextCursorPosition(from, mode)
							 : line->previousCursorPosition(from, mode);
	if (to != from)
		return origin + to;
	return fPosition + (isForward ? 1 : -1);
}


bool
TextCaret::_IsForward(bool toTheRight) const
{
	return toTheRight != fLayout->IsRightToLeft(fText->LineAtPosition(fPosition));
}


int32
TextCaret::_ByRows(int32 rows)
{
	fIsAtEdge = false;
	int32 number = fText->LineAtPosition(fPosition);
	QTextLine row = fLayout->Line(number)->lineForTextPosition(
		fPosition - fText->PositionOf(number));
	if (!row.isValid())
		return fPosition;
	if (fColumn < 0)
		fColumn = row.cursorToX(fPosition - fText->PositionOf(number));

	int index = row.lineNumber();
	for (; rows > 0; rows--) {
		if (index + 1 < fLayout->Line(number)->lineCount()) {
			index++;
		} else if (number + 1 < fText->CountLines()) {
			number++;
			index = 0;
		} else {
			fIsAtEdge = true;
			return fText->CountPositions();
		}
	}
	for (; rows < 0; rows++) {
		if (index > 0) {
			index--;
		} else if (number > 0) {
			number--;
			index = fLayout->Line(number)->lineCount() - 1;
		} else {
			fIsAtEdge = true;
			return 0;
		}
	}
	return fLayout->PositionAt(number, index, fColumn);
}


int32
TextCaret::_EndOfRow() const
{
	const Range row = RowAt(fPosition);
	// Behind the last character of a row the caret would stand on the next one.
	const bool isLast = row.end == fPosition || RowAt(row.end).start != row.end;
	if (isLast)
		return row.end;
	const int32 number = fText->LineAtPosition(fPosition);
	const int32 start = fText->PositionOf(number);
	return start + fLayout->Line(number)->previousCursorPosition(row.end - start);
}


int32
TextCaret::_Cut(int32 position) const
{
	position = std::min(std::max<int32>(position, 0), fText->CountPositions());
	return fText->PositionAt(fText->OffsetAt(position));
}


/*!	\return The characters, the word or the paragraph around a position. */
TextCaret::Range
TextCaret::_UnitAt(int32 position) const
{
	if (fUnit == kCharacter)
		return {position, position};

	const int32 number = fText->LineAtPosition(position);
	const int32 start = fText->PositionOf(fText->FirstOfParagraph(number));
	const int32 last = fText->LastOfParagraph(number);
	const int32 length = fText->PositionOf(last) + fText->CountPositionsOf(last) - start;
	if (fUnit == kLine)
		return {start, std::min(start + length + 1, fText->CountPositions())};

	const QString text = QString::fromStdU16String(fText->TextOfParagraph(number));
	int at = position - start;
	// The far half of the last letter is closer to what follows.
	if (at > 0 && (at == length || text[at].isSpace()) && !text[at - 1].isSpace())
		at--;
	QTextBoundaryFinder finder(QTextBoundaryFinder::Word, text);
	finder.setPosition(at);
	const int from = finder.isAtBoundary() ? at : static_cast<int>(finder.toPreviousBoundary());
	finder.setPosition(at);
	const int to = static_cast<int>(finder.toNextBoundary());
	return {start + std::max(from, 0), start + (to < 0 ? length : to)};
}
