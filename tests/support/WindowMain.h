/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef WINDOW_MAIN_H
#define WINDOW_MAIN_H


/*!	A test looks at its windows and uses them while it has all of them locked, which WaitFor() sees
	to: it lets go of them while it waits, as otherwise nothing would be served. Who shows a window
	and goes on without waiting calls this; the constructor's lock ended with Show().
*/
void HoldWindows();

/*!	For the calls in which others have to be served: lets go of the windows meanwhile. */
class FreeWindows {
public:
	FreeWindows();
	FreeWindows(const FreeWindows&) = delete;
	~FreeWindows();

	FreeWindows& operator=(const FreeWindows&) = delete;
};


#endif // WINDOW_MAIN_H
