/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef BENCH_DISPLAY_H
#define BENCH_DISPLAY_H


#include <cstdint>
#include <vector>

#include <xcb/xcb.h>


namespace bench {


/*!	Pixels of a rectangle of a window, row by row. */
using Pixels = std::vector<uint32_t>;


struct Area {
	int16_t left;
	int16_t top;
	uint16_t width;
	uint16_t height;
};


/*!	A connection to the X server: what is on its screen, and keys pressed as if by a hand. Ends the
	process when there is no server, or when it goes away.
*/
class Display {
public:
	Display();
	~Display();
	Display(const Display&) = delete;
	Display& operator=(const Display&) = delete;

	double WaitForFirstWindow();

	Pixels Read(xcb_window_t window, const Area& area);
	void PressKey(uint32_t keysym);

private:
	uint8_t _KeyCode(uint32_t keysym);

	xcb_connection_t* fConnection;
	xcb_screen_t* fScreen;
};


/*!	Seconds on the monotonic clock, which is the same in every process. */
double Now();


} // namespace bench


#endif // BENCH_DISPLAY_H
