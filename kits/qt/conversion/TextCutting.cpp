/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextCutting.h>

#include <algorithm>
#include <iterator>

#include <TextConversion.h>


static const QChar kEllipsis(0x2026);

// Unlikely to be seen at once, however narrow they are.
static const qsizetype kMostSeen = 4096;

// What is measured first: some characters more than there usually is room for.
static const qsizetype kFewestMeasured = 32;
static const qreal kUsualWidth = 6;

// Of a character and what belongs to it.
static const qsizetype kLongestCharacter = 64;


/*!	\param index Where there are units on both sides. */
static bool
may_be_cut(const QString& text, qsizetype index)
{
	const QChar after = text[index];
	if (after.isLowSurrogate() && text[index - 1].isHighSurrogate())
		return false;
	const auto character = [&text](qsizetype at) {
		const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size()
			&& text[at + 1].isLowSurrogate();
		return isPair ? QChar::surrogateToUcs4(text[at], text[at + 1])
					  : char32_t(text[at].unicode());
	};
	const bool isPairBefore = index > 1 && text[index - 1].isLowSurrogate()
		&& text[index - 2].isHighSurrogate();
	return !characters_join(character(index - (isPairBefore ? 2 : 1)), character(index));
}


QString
front_of_text(const QString& text, qsizetype count)
{
	if (text.size() <= count)
		return text;
	for (qsizetype end = count; end > 0 && end > count - kLongestCharacter; end--) {
		if (may_be_cut(text, end))
			return text.left(end);
	}
	const bool isPair = count > 0 && text[count].isLowSurrogate()
		&& text[count - 1].isHighSurrogate();
	return text.left(isPair ? count - 1 : count);
}


QString
shortened_text(const QString& text, qsizetype count)
{
	const QString front = front_of_text(text, count);
	return front.size() < text.size() ? front + kEllipsis : front;
}


QString
seen_front(const QString& text, const QFontMetricsF& metrics, qreal width)
{
	qsizetype count = std::max(kFewestMeasured, static_cast<qsizetype>(width / kUsualWidth));
	for (; count < std::min(text.size(), kMostSeen); count *= 2) {
		QString front = front_of_text(text, count);
		if (metrics.horizontalAdvance(shown_text(front)) > width)
			return front;
	}
	return front_of_text(text, kMostSeen);
}


/*!	Whether the two units there are one character, which may be shown as two. */
static bool
is_within_pair(const QString& text, qsizetype index)
{
	return index > 0 && index < text.size() && text[index].isLowSurrogate()
		&& text[index - 1].isHighSurrogate();
}


/*!	\param shown As long as the text.
	\param cut What is left of \a shown, with an ellipsis somewhere.
	\return The text cut in the same place.
*/
static QString
cut_like(const QString& text, const QString& shown, const QString& cut)
{
	const auto split = std::mismatch(cut.begin(), cut.end(), shown.begin(), shown.end());
	const qsizetype start = split.first - cut.begin();
	const auto end = std::mismatch(cut.rbegin(), std::make_reverse_iterator(split.first),
		shown.rbegin(), std::make_reverse_iterator(split.second));
	const qsizetype rest = end.first - cut.rbegin();
	const qsizetype left = is_within_pair(text, start) ? start - 1 : start;
	const qsizetype right = is_within_pair(text, text.size() - rest) ? rest - 1 : rest;
	return text.left(left) + cut.mid(start, cut.size() - start - rest) + text.right(right);
}


/*!	\return Both ends of a text that is very long. */
static QString
ends_of_text(const QString& text)
{
	if (text.size() <= 2 * kMostSeen)
		return text;
	qsizetype start = text.size() - kMostSeen;
	while (start < text.size() - 1 && !may_be_cut(text, start))
		start++;
	return front_of_text(text, kMostSeen) + text.mid(start);
}


QString
elided_text(const QString& text, const QFontMetricsF& metrics, Qt::TextElideMode mode, qreal width)
{
	const QString seen = mode == Qt::ElideRight ? seen_front(text, metrics, width)
												: ends_of_text(text);
	const QString shown = shown_text(seen);
	const bool fits = metrics.horizontalAdvance(shown) <= width;
	if (fits)
		return seen.size() == text.size() ? text : seen + kEllipsis;
	return cut_like(seen, shown, metrics.elidedText(shown, mode, width));
}
