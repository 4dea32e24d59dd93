/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef START_PREPARATION_H
#define START_PREPARATION_H


/*!	Has done by a thread of its own what the first window needs and what takes its time elsewhere:
	Qt loads whatever reads pictures and connects to the session bus, which screen readers
	are on. The main thread sees to its fonts meanwhile.
	To be called on the main thread as soon as the QApplication is made.
*/
void prepare_start();
/*!	Waits for that thread, which must not outlive the QApplication. */
void end_start_preparation();


#endif // START_PREPARATION_H
