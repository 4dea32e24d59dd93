/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef BENCH_KEY_ECHO_H
#define BENCH_KEY_ECHO_H


#include <vector>

#include "Display.h"


namespace bench {


/*!	Types a letter into an empty entry and takes it away again, and measures how long either takes
	to show. The caret does not count, wherever it blinks: only those pixels are looked at that tell
	the two states apart for good.
*/
class KeyEcho {
public:
	KeyEcho(Display& display, xcb_window_t window, const Area& area);

	bool Calibrate();
	// In seconds; negative when nothing had happened after some seconds.
	double MeasureNext();

private:
	Pixels _Settled(std::vector<bool>* _steady);
	bool _Shows(const Pixels& wanted);
	void _Press();

	Display& fDisplay;
	xcb_window_t fWindow;
	Area fArea;
	Pixels fEmpty;
	Pixels fTyped;
	// Where to look.
	std::vector<bool> fTelling;
	bool fHasLetter;
};


} // namespace bench


#endif // BENCH_KEY_ECHO_H
