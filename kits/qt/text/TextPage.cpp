/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextPage.h>

#include <algorithm>


TextPage::TextPage(const TextStore* text, TextLayout* layout)
	: fText(text),
	  fLayout(layout),
	  fHeight(0),
	  fTop{0, 0}
{
}


void
TextPage::LinesChanged(int32 first)
{
	if (fTop.line >= first)
		fTop.line = std::min(fTop.line, fText->CountLines() - 1);
}


void
TextPage::RowsChanged(int32 position)
{
	fTop = _RowAt(std::min(position, fText->CountPositions()));
}


int32
TextPage::TopRow()
{
	return _Number(_Top());
}


int32
TextPage::LastTopRow()
{
	return _Number(_LastTop());
}


/*!	Whether nothing follows the page. */
bool
TextPage::IsAtEnd()
{
	return !(_Top() < _LastTop());
}


/*!	If all were rows of plain text, at least one. */
int32
TextPage::CountRowsPerPage() const
{
	return std::max<int32>(static_cast<int32>(_PageHeight() / fLayout->RowHeight()), 1);
}


/*!	\return How many rows are seen as a whole: so many further the next page begins. At the end of
	the text a page of plain ones.
*/
int32
TextPage::CountRowsSeen()
{
	Row row = _Top();
	int32 count = 0;
	qreal height = _PageHeight() - fLayout->Row(row.line, row.row).height();
	while (height >= 0) {
		count++;
		const Row next = _Moved(row, 1);
		if (!(row < next))
			return std::max(count, CountRowsPerPage());
		row = next;
		height -= fLayout->Row(row.line, row.row).height();
	}
	return std::max<int32>(count, 1);
}


/*!	\return How many of those above the page would be seen as a whole. At the start of the text a
	page of plain ones.
*/
int32
TextPage::CountRowsAbove()
{
	const Row top = _Top();
	const Row first = _RowsBefore(_Moved(top, -1), _PageHeight());
	const int32 count = _Number(top) - _Number(first);
	return first.line == 0 && first.row == 0 ? std::max(count, CountRowsPerPage()) : count;
}


/*!	\param topRow Is cut to what there is. */
void
TextPage::ScrollTo(int32 topRow)
{
	topRow = std::max<int32>(std::min(topRow, LastTopRow()), 0);
	fTop.line = fLayout->Rows().LineAtRow(topRow);
	fTop.row = topRow - fLayout->Rows().FirstRowOf(fTop.line);
}


/*!	As far as there is something.
	\param rows Less than 0 to scroll up.
*/
void
TextPage::ScrollBy(int32 rows)
{
	fTop = std::min(_Moved(_Top(), rows), _LastTop());
}


void
TextPage::ScrollToEnd()
{
	fTop = _LastTop();
}


/*!	As far as is necessary to have the row of a character on the page. */
void
TextPage::ScrollToPosition(int32 position)
{
	const Row row = _RowAt(position);
	const Row top = _Top();
	fTop = row < top ? row : std::max(top, _RowsBefore(row, _PageHeight()));
	fTop = std::min(fTop, _LastTop());
}


void
TextPage::LookAbove()
{
	static_cast<void>(_RowsBefore(_Top(), 2 * _PageHeight()));
}


/*!	\return Where the page begins in the text. */
int32
TextPage::TopPosition()
{
	const Row top = _Top();
	return fText->PositionOf(top.line) + fLayout->Row(top.line, top.row).textStart();
}


/*!	\return The lines on the page, at least one. */
std::vector<TextPage::SeenLine>
TextPage::SeenLines()
{
	std::vector<SeenLine> lines;
	const Row first = _Top();
	qreal top = kMargin - fLayout->Row(first.line, first.row).y();
	int32 number = first.line;
	do {
		lines.push_back({number, top});
		const QTextLayout* line = fLayout->Line(number);
		const QTextLine last = line->lineAt(line->lineCount() - 1);
		top += last.y() + last.height();
		number++;
	} while (number < fText->CountLines() && top < fHeight);
	return lines;
}


/*!	\return A pixel wide. What is not on the page is said to be as far away as if all rows were of
	plain text.
*/
QRectF
TextPage::PlaceOf(int32 position)
{
	const Row row = _RowAt(position);
	const QTextLine place = fLayout->Row(row.line, row.row);
	const qreal x = kMargin + place.cursorToX(position - fText->PositionOf(row.line));
	for (const SeenLine& seen : SeenLines()) {
		if (seen.line == row.line)
			return QRectF(x, seen.top + place.y(), 1, place.height());
	}
	const int32 distance = _Number(row) - _Number(_Top());
	return QRectF(x, kMargin + distance * fLayout->RowHeight(), 1, place.height());
}


/*!	\return The boundary between characters that is closest; on the first or the last row of the
	page for points outside, and the start or the end of the text where it is seen and ends before
	that.
	\param cursor Whether the character that is at the point is wanted instead.
*/
int32
TextPage::PositionAt(const QPointF& where, QTextLine::CursorPosition cursor)
{
	const Row top = _Top();
	if (where.y() < 0 && top.line == 0 && top.row == 0)
		return 0;
	const std::vector<SeenLine> lines = SeenLines();
	const QTextLayout* last = fLayout->Line(lines.back().line);
	const QTextLine lastRow = last->lineAt(last->lineCount() - 1);
	if (lines.back().line == fText->CountLines() - 1
		&& lines.back().top + lastRow.y() + lastRow.height() <= where.y())
		return fText->CountPositions();

	SeenLine found = lines.front();
	for (const SeenLine& seen : lines) {
		if (seen.top <= where.y())
			found = seen;
	}
	QTextLayout* line = fLayout->Line(found.line);
	int row = found.line == top.line ? top.row : 0;
	while (row + 1 < line->lineCount() && found.top + line->lineAt(row + 1).y() <= where.y())
		row++;
	return fLayout->PositionAt(found.line, row, where.x() - kMargin, cursor);
}


void
TextPage::Tidy()
{
	const std::vector<SeenLine> lines = SeenLines();
	fLayout->ForgetOthers(lines.front().line, lines.back().line, _LastTop().line);
}


/*!	\return The first row of the page. Its line may have less rows than it had, or than it was
	thought to have.
*/
TextPage::Row
TextPage::_Top()
{
	fTop.row = std::min(fTop.row, fLayout->Line(fTop.line)->lineCount() - 1);
	return fTop;
}


TextPage::Row
TextPage::_RowAt(int32 position)
{
	const int32 line = fText->LineAtPosition(position);
	const QTextLine row = fLayout->Line(line)->lineForTextPosition(
		position - fText->PositionOf(line));
	return {line, row.isValid() ? row.lineNumber() : 0};
}


/*!	\return The row some rows further, or the first or last one there is. */
TextPage::Row
TextPage::_Moved(Row row, int32 rows)
{
	for (; rows < 0 && (row.row > 0 || row.line > 0); rows++) {
		if (row.row > 0) {
			row.row--;
		} else {
			row.line--;
			row.row = fLayout->Line(row.line)->lineCount() - 1;
		}
	}
	for (; rows > 0; rows--) {
		if (row.row + 1 < fLayout->Line(row.line)->lineCount())
			row.row++;
		else if (row.line + 1 < fText->CountLines())
			row = {row.line + 1, 0};
		else
			break;
	}
	return row;
}


/*!	\return The first of the rows that fit into a height together with \a row, which is the last of
	them.
*/
TextPage::Row
TextPage::_RowsBefore(Row row, qreal height)
{
	Row first = row;
	for (;;) {
		height -= fLayout->Row(row.line, row.row).height();
		if (height < 0)
			return first;
		first = row;
		if (row.row > 0) {
			row.row--;
		} else if (row.line > 0) {
			row.line--;
			row.row = fLayout->Line(row.line)->lineCount() - 1;
		} else {
			return first;
		}
	}
}


/*!	\return The first row of the last page. */
TextPage::Row
TextPage::_LastTop()
{
	const int32 last = fText->CountLines() - 1;
	return _RowsBefore({last, fLayout->Line(last)->lineCount() - 1}, _PageHeight());
}


qreal
TextPage::_PageHeight() const
{
	return std::max(fHeight - 2 * kMargin, 0);
}
