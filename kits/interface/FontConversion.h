/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FONT_CONVERSION_H
#define FONT_CONVERSION_H


#include <QFont>

#include <Font.h>


// A font of the toolkit, and a reference to a cached one: fonts of a few sizes and faces are asked for all the time.
const QFont& font_to_toolkit(const BFont& font);

// Sets the application's fonts: before any view. Forgets them.
void init_fonts();
void exit_fonts();


#endif // FONT_CONVERSION_H
