/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_CUTTING_H
#define TEXT_CUTTING_H


#include <QFontMetricsF>
#include <QString>


// Measuring a text takes as long as all of it, and a stranger's may have 65,535 bytes. These look at
// what can be seen only. Counts are of UTF-16 units, widths in pixels. What is given and returned
// stands as it is; it is measured as shown_text() shows it.

/*!	The front of a text that is not longer than that. A character stays whole, with its marks as far
	as there are not very many.
*/
QString front_of_text(const QString& text, qsizetype count);

/*!	That with an ellipsis, if it is not all of the text. */
QString shortened_text(const QString& text, qsizetype count);

/*!	So much of the front that it is wider than \a width; or some thousand units, where they are not;
	or all of the text.
*/
QString seen_front(const QString& text, const QFontMetricsF& metrics, qreal width);

/*!	Not wider than \a width, with an ellipsis where something was cut. Beginning and end of a very
	long text are some thousand units of it.
*/
QString elided_text(const QString& text, const QFontMetricsF& metrics, Qt::TextElideMode mode,
	qreal width);


#endif // TEXT_CUTTING_H
