/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SCREEN_H
#define SCREEN_H


#include <Rect.h>


class BWindow;
struct screen_id;


/*!	The screen that a window is on, as it is when the object is made. On the main thread. */
class BScreen {
public:
	BScreen(screen_id id) = delete;
	BScreen(BWindow* window);
	BScreen(const BScreen&) = delete;

	BScreen& operator=(const BScreen&) = delete;

	BRect Frame();

private:
	BRect fFrame;
};


#endif // SCREEN_H
