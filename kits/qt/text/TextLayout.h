/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_LAYOUT_H
#define TEXT_LAYOUT_H


#include <map>
#include <memory>
#include <vector>

#include <QFont>
#include <QTextCharFormat>
#include <QTextLayout>
#include <QTextOption>

#include <RowCounts.h>
#include <StyleRuns.h>
#include <TextStore.h>


/*!	Lays out the lines of a text in rows, those that are asked for. A line that a soft end begins
	is read in the direction of its paragraph. Sizes are in pixels. Main thread only.
*/
class TextLayout {
public:
	// Both are borrowed.
	TextLayout(const TextStore* text, const StyleRuns* styles);

	// All lines are laid out anew.
	void SetFont(const QFont& font);
	void SetWidth(qreal width);
	void SetWraps(bool wraps);

	const QTextCharFormat& FormatOf(int32 style) const { return fFormats[style]; }
	void SetFormatOf(int32 style, const QTextCharFormat& format);

	bool MakeRoom(const TextRoom& room, size_t lines) { return fRows.MakeRoom(room, lines); }
	// After a change of the text, from a line on; after one of the styles, up to a line.
	void LinesChanged(int32 first);
	void StylesChanged(int32 first, int32 last);

	/*!	\return A line that is laid out from y = 0 on; until the text changes or it is forgotten. */
	QTextLayout* Line(int32 line);
	QTextLine Row(int32 line, int32 row) { return Line(line)->lineAt(row); }
	// The position in the text that is at a place in a row.
	int32 PositionAt(int32 line, int32 row, qreal x,
		QTextLine::CursorPosition cursor = QTextLine::CursorBetweenCharacters);
	// As its paragraph is read.
	bool IsRightToLeft(int32 line) const;
	// How many UTF-16 units of the text are laid out at present.
	int32 CountUnits() const;
	const RowCounts& Rows() const { return fRows; }
	// How high a row of plain text is.
	qreal RowHeight() const { return fRowHeight; }

	// Lines from the first one to the last, and from another one to the end of the text, are kept;
	// the others lose their layout.
	void ForgetOthers(int32 first, int32 last, int32 firstOfEnd);

private:
	QTextOption _OptionFor(int32 line) const;
	void _LayOut(QTextLayout* layout) const;
	QList<QTextLayout::FormatRange> _FormatsOf(int32 line) const;
	void _ForgetAll();

	const TextStore* fText;
	const StyleRuns* fStyles;
	QFont fFont;
	qreal fRowHeight;
	qreal fWidth;
	bool fWraps;
	// By number of style.
	std::vector<QTextCharFormat> fFormats;
	std::map<int32, std::unique_ptr<QTextLayout>> fLines;
	// What was laid out once keeps its number of rows.
	RowCounts fRows;
};


#endif // TEXT_LAYOUT_H
