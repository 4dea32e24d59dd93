/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_PAGE_H
#define TEXT_PAGE_H


#include <vector>

#include <QRectF>

#include <TextLayout.h>


/*!	The part of a text that is on the screen: the page, which begins with one of the text's rows.
	Places are in pixels, from the corner of the view. Which row of all is the first one changes
	when lines above it are laid out; what is seen does not.
	Main thread only.
*/
class TextPage {
public:
	// Around the text, in pixels.
	static const int kMargin = 4;

	// A line of the page, and where it begins; the first one may begin above the page.
	struct SeenLine {
		int32 line;
		qreal top;
	};

	// Both are borrowed.
	TextPage(const TextStore* text, TextLayout* layout);

	void SetHeight(int height) { fHeight = height; }
	// After a change of the text, from a line on.
	void LinesChanged(int32 first);
	// Lines have been laid out anew. The same text is at the top, if \a position is where it began.
	void RowsChanged(int32 position);

	// In rows of the whole text. To ask for the last one lays out the last page.
	int32 TopRow();
	int32 LastTopRow();
	bool IsAtEnd();
	int32 CountRowsPerPage() const;
	int32 CountRowsSeen();
	int32 CountRowsAbove();
	void ScrollTo(int32 topRow);
	void ScrollBy(int32 rows);
	void ScrollToEnd();
	void ScrollToPosition(int32 position);
	// Has the page above laid out, so that it is known how many rows that is.
	void LookAbove();

	int32 TopPosition();
	std::vector<SeenLine> SeenLines();

	// Where a character begins, exactly so on the page; and which one is at a point.
	QRectF PlaceOf(int32 position);
	int32 PositionAt(const QPointF& where,
		QTextLine::CursorPosition cursor = QTextLine::CursorBetweenCharacters);

	// Forgets the layout of what is not seen.
	void Tidy();

private:
	// A row of a line.
	struct Row {
		int32 line;
		int32 row;

		bool operator<(const Row& other) const
		{
			return line < other.line || (line == other.line && row < other.row);
		}
	};

	Row _Top();
	Row _RowAt(int32 position);
	Row _Moved(Row row, int32 rows);
	Row _RowsBefore(Row row, qreal height);
	Row _LastTop();
	int32 _Number(const Row& row) const { return fLayout->Rows().FirstRowOf(row.line) + row.row; }
	qreal _PageHeight() const;

	const TextStore* fText;
	TextLayout* fLayout;
	int fHeight;
	Row fTop;
};


#endif // TEXT_PAGE_H
