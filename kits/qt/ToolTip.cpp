/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ToolTipPrivate.h>

#include <QToolTip>

#include <TextConversion.h>


BToolTip::BToolTip(const char* text)
	: fMarkup(text_from_bytes(text, kToolTipText))
{
}


BToolTip::~BToolTip()
{
	Hide();
}


void
BToolTip::SetText(const char* text)
{
	const QString markup = text_from_bytes(text, kToolTipText);
	if (markup == fMarkup)
		return;
	Hide();
	fMarkup = markup;
}


void
BToolTip::Show(const QPoint& place, QWidget* widget, const QRect& area) const
{
	QToolTip::showText(place, fMarkup, widget, area);
}


/*!	There is one tool tip on the screen at most; it may be another view's. */
void
BToolTip::Hide() const
{
	if (QToolTip::isVisible() && QToolTip::text() == fMarkup)
		QToolTip::hideText();
}
