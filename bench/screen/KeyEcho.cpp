/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "KeyEcho.h"

#include <ctime>


namespace bench {


static const uint32_t kLetterKey = 'm';
static const uint32_t kBackSpaceKey = 0xff08;

// In seconds. A caret has blinked more than once after the first; nobody types on after the second.
static const double kSettling = 1.6;
static const double kPatience = 5.0;

static const size_t kFewestPixels = 10;


static void
pause(long microseconds)
{
	const timespec time = {0, microseconds * 1000};
	nanosleep(&time, NULL);
}


KeyEcho::KeyEcho(Display& display, xcb_window_t window, const Area& area)
	: fDisplay(display),
	  fWindow(window),
	  fArea(area),
	  fHasLetter(false)
{
}


/*!	Learns how the entry looks with the letter and without, while nothing else happens.
	\return \c false when nothing shows of a letter that is typed.
*/
bool
KeyEcho::Calibrate()
{
	std::vector<bool> steadyEmpty;
	fEmpty = _Settled(&steadyEmpty);
	_Press();
	pause(200000);
	std::vector<bool> steadyTyped;
	fTyped = _Settled(&steadyTyped);

	size_t count = 0;
	fTelling.assign(fEmpty.size(), false);
	for (size_t i = 0; i < fEmpty.size(); i++) {
		if (steadyEmpty[i] && steadyTyped[i] && fEmpty[i] != fTyped[i]) {
			fTelling[i] = true;
			count++;
		}
	}
	return count >= kFewestPixels;
}


double
KeyEcho::MeasureNext()
{
	const double begin = Now();
	_Press();
	const Pixels& wanted = fHasLetter ? fTyped : fEmpty;
	while (!_Shows(wanted)) {
		if (Now() - begin > kPatience)
			return -1;
		pause(500);
	}
	return Now() - begin;
}


/*!	The picture, and which of its pixels have not changed for a while. */
Pixels
KeyEcho::_Settled(std::vector<bool>* _steady)
{
	Pixels first = fDisplay.Read(fWindow, fArea);
	_steady->assign(first.size(), true);
	const double end = Now() + kSettling;
	while (Now() < end) {
		const Pixels next = fDisplay.Read(fWindow, fArea);
		for (size_t i = 0; i < first.size(); i++) {
			if (next[i] != first[i])
				(*_steady)[i] = false;
		}
		pause(10000);
	}
	return first;
}


bool
KeyEcho::_Shows(const Pixels& wanted)
{
	const Pixels pixels = fDisplay.Read(fWindow, fArea);
	for (size_t i = 0; i < pixels.size(); i++) {
		if (fTelling[i] && pixels[i] != wanted[i])
			return false;
	}
	return true;
}


void
KeyEcho::_Press()
{
	fDisplay.PressKey(fHasLetter ? kBackSpaceKey : kLetterKey);
	fHasLetter = !fHasLetter;
}


} // namespace bench
