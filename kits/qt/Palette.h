/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PALETTE_H
#define PALETTE_H


class QPalette;


// The QPalette, from those of ui_color(): one light scheme on every desktop.
QPalette make_palette();


#endif // PALETTE_H
