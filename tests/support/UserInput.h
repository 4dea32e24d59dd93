/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef USER_INPUT_H
#define USER_INPUT_H


#include <string>

#include <Point.h>
#include <SupportDefs.h>

#include "Keyboard.h"


class BView;


// What a user does with the mouse, and what a screen reader finds. For suites with
// windows.

void set_clipboard(const char* text);
std::string clipboard();
void click(BView* view, BPoint where);
void double_click(BView* view, BPoint where);
// A click that comes from the window system, as a user's do: it takes the focus along. It arrives
// with one of the next turns.
void click_for_focus(BView* view, BPoint where);
// Moves the mouse there without a click.
void point_at(BView* view, BPoint where);
// Leaves the mouse there for as long as it takes a tool tip to come up.
void rest_mouse(BView* view, BPoint where);
// The left mouse button, with B_SHIFT_KEY or without. It stays down until it is released.
void press_mouse(BView* view, BPoint where, uint32 modifiers = 0);
// For a double click, after the first one.
void press_mouse_again(BView* view, BPoint where);
void drag_mouse(BView* view, BPoint where);
void release_mouse(BView* view, BPoint where);
// What is dragged away while drag_mouse() waits is let go of again, over nothing.
void cancel_next_drag(BView* view);
void open_context_menu(BView* view, BPoint where);
// Towards the user for less than 0.
void turn_wheel(BView* view, int notches);
void scroll_to_top(BView* view);

/*!	The vertical scroll bar beside a view, in its own steps. */
struct ScrollState {
	int value;
	int max;
	int page;
	int step;
};

ScrollState scroll_state(BView* view);
// Where the user has dragged the knob to.
void scroll_to(BView* view, int value);
enum scroll_button { kScrollStepUp, kScrollStepDown, kScrollPageUp, kScrollPageDown };
// Clicks an arrow of the scroll bar, or beside its knob.
void click_scroll_bar(BView* view, scroll_button button);

/*!	What a screen reader is told of a view, or of one of its rows. */
struct Accessible {
	std::string name;
	std::string description;
	std::string text;
	bool isLabel;
	bool isPassword;
	bool isReadOnly;
	bool isMultiLine;
	bool isFocusable;
	bool isSelected;
	int childCount;
	// In pixels of the screen.
	int left;
	int top;
	int width;
	int height;
};

Accessible accessible_of(BView* view);
Accessible accessible_of_row(BView* list, int row);
// The attributes at a byte of the text of a view, as in "color:rgb(200,0,0);".
std::string accessible_attributes(BView* view, int position);
// Which character of the text of a view is at a point, -1 for a point outside. Nothing but what is
// seen is laid out for that.
int accessible_position_at(BView* view, BPoint where);

// Whether the caret of a field that has the keyboard blinks, and how soon it does not any more when
// nobody is there.
bool carets_blink();
void rest_carets_after(int milliseconds);

// Whether the screen does not show yet what a view is to show.
bool waits_for_frame(BView* view);
// How much of the text of a text view is laid out, in UTF-16 units.
int laid_out_units(BView* view);

// The color of a pixel of a view as it is shown, as 0xrrggbb.
unsigned pixel_of(BView* view, BPoint where);
// All pixels of a view as it is shown, row by row, four bytes each.
std::string picture_of(BView* view);


#endif // USER_INPUT_H
