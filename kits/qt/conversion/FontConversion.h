/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FONT_CONVERSION_H
#define FONT_CONVERSION_H


#include <QFont>
#include <QFontMetricsF>

#include <Font.h>


// The QFont and its QFontMetricsF, from a cache: the same few are asked for all the time.
const QFont& font_to_toolkit(const BFont& font);
const QFontMetricsF& metrics_of_font(const BFont& font);
const font_height& height_of_font(const BFont& font);

// Makes the kits' and Qt's own default fonts; the application does, before any view. And
// forgets them.
void init_fonts();
void exit_fonts();


#endif // FONT_CONVERSION_H
