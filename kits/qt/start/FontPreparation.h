/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FONT_PREPARATION_H
#define FONT_PREPARATION_H


/*!	Has the system's fonts looked up by a thread of its own, which takes about as long as connecting
	to the screen and need not wait for it. To be called before the QApplication is made,
	which waits for the thread before it needs a font.
*/
void prepare_fonts();


#endif // FONT_PREPARATION_H
