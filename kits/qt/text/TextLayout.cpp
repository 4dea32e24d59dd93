/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextLayout.h>

#include <algorithm>

#include <QFontMetricsF>

#include <TextConversion.h>


// In pixels, where lines are not wrapped.
static const qreal kUnlimited = 1 << 24;


TextLayout::TextLayout(const TextStore* text, const StyleRuns* styles)
	: fText(text),
	  fStyles(styles),
	  fRowHeight(QFontMetricsF(fFont).lineSpacing()),
	  fWidth(kUnlimited),
	  fWraps(true)
{
	fRows.SetCountLines(fText->CountLines());
}


void
TextLayout::SetFont(const QFont& font)
{
	fFont = font;
	fRowHeight = QFontMetricsF(font).lineSpacing();
	_ForgetAll();
}


void
TextLayout::SetWidth(qreal width)
{
	if (width == fWidth)
		return;
	fWidth = width;
	_ForgetAll();
}


void
TextLayout::SetWraps(bool wraps)
{
	fWraps = wraps;
	_ForgetAll();
}


/*!	\param style One that has a format, or the number after them. Lines that have it must not be
	laid out yet.
*/
void
TextLayout::SetFormatOf(int32 style, const QTextCharFormat& format)
{
	if (static_cast<size_t>(style) == fFormats.size())
		fFormats.push_back(format);
	else
		fFormats[style] = format;
}


void
TextLayout::LinesChanged(int32 first)
{
	fLines.erase(fLines.lower_bound(first), fLines.end());
	fRows.SetCountLines(std::min(first, fRows.CountLines()));
	fRows.SetCountLines(fText->CountLines());
}


void
TextLayout::StylesChanged(int32 first, int32 last)
{
	fLines.erase(fLines.lower_bound(first), fLines.upper_bound(last));
}


QTextLayout*
TextLayout::Line(int32 line)
{
	std::unique_ptr<QTextLayout>& place = fLines[line];
	if (place != NULL)
		return place.get();

	const QString text = shown_text(QString::fromStdU16String(fText->TextOf(line)));
	place.reset(new QTextLayout(text, fFont));
	place->setCacheEnabled(true);
	place->setFormats(_FormatsOf(line));
	place->setTextOption(_OptionFor(line));
	_LayOut(place.get());
	fRows.SetRowsOf(line, place->lineCount());
	return place.get();
}


/*!	Where the line ends softly, that is before its last character at the latest: behind it one is in
	the next row. QTextLine does so with the blanks at which it wraps.
*/
int32
TextLayout::PositionAt(int32 line, int32 row, qreal x, QTextLine::CursorPosition cursor)
{
	const QTextLayout* layout = Line(line);
	int32 position = layout->lineAt(row).xToCursor(x, cursor);
	if (position == fText->CountPositionsOf(line) && fText->EndsSoftly(line))
		position = layout->previousCursorPosition(position);
	return fText->PositionOf(line) + position;
}


bool
TextLayout::IsRightToLeft(int32 line) const
{
	const std::u16string text = fText->TextOf(fText->FirstOfParagraph(line));
	return QStringView(text).isRightToLeft();
}


int32
TextLayout::CountUnits() const
{
	int32 count = 0;
	for (const auto& line : fLines)
		count += static_cast<int32>(line.second->text().size());
	return count;
}


void
TextLayout::ForgetOthers(int32 first, int32 last, int32 firstOfEnd)
{
	auto line = fLines.begin();
	while (line != fLines.end() && line->first < firstOfEnd) {
		if (line->first >= first && line->first <= last)
			++line;
		else
			line = fLines.erase(line);
	}
}


/*!	A line that begins a paragraph is read as its own text says. */
QTextOption
TextLayout::_OptionFor(int32 line) const
{
	QTextOption option;
	option.setWrapMode(fWraps ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
	if (fText->FirstOfParagraph(line) != line)
		option.setTextDirection(IsRightToLeft(line) ? Qt::RightToLeft : Qt::LeftToRight);
	return option;
}


void
TextLayout::_LayOut(QTextLayout* layout) const
{
	const qreal width = fWraps ? std::max<qreal>(fWidth, 1) : kUnlimited;
	qreal height = 0;
	layout->beginLayout();
	for (;;) {
		QTextLine row = layout->createLine();
		if (!row.isValid())
			break;
		row.setLeadingIncluded(true);
		row.setLineWidth(width);
		row.setPosition(QPointF(0, height));
		height += row.height();
	}
	layout->endLayout();
}


QList<QTextLayout::FormatRange>
TextLayout::_FormatsOf(int32 line) const
{
	QList<QTextLayout::FormatRange> ranges;
	const int32 start = fText->OffsetOf(line);
	const int32 end = start + fText->CountBytesOf(line);
	const int32 origin = fText->PositionOf(line);
	TextStore::Place from = {start, origin};
	int32 run = start < end ? fStyles->RunAt(start) : 0;
	for (int32 offset = start; offset < end; run++) {
		offset = std::min(fStyles->EndOf(run), end);
		const TextStore::Place to = fText->PlaceAt(line, from, offset);
		ranges.append(
			{from.position - origin, to.position - from.position, FormatOf((*fStyles)[run].style)});
		from = to;
	}
	return ranges;
}


void
TextLayout::_ForgetAll()
{
	fLines.clear();
	fRows.Reset(fText->CountLines());
}
