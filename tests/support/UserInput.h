/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef USER_INPUT_H
#define USER_INPUT_H


#include <string>

#include <Point.h>


class BView;


// What a user does with the keyboard and the mouse, and what a screen reader finds. For suites with windows.

enum user_key {
	KEY_CHARACTER,
	KEY_RETURN,
	KEY_BACKSPACE,
	KEY_UP,
	KEY_DOWN,
	KEY_HOME,
	KEY_END,
	KEY_SELECT_ALL,
	// With the shift key held.
	KEY_SELECT_TO_START,
	KEY_SELECT_RIGHT,
	KEY_PASTE
};

void press_key(BView* view, user_key key, const char* text = "");
void type_text(BView* view, const char* text);
void set_clipboard(const char* text);
void click(BView* view, BPoint where);
void double_click(BView* view, BPoint where);
// Moves the mouse there without a click.
void point_at(BView* view, BPoint where);
void scroll_to_top(BView* view);

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

// The color of a pixel of a view as it is shown, as 0xrrggbb.
unsigned pixel_of(BView* view, BPoint where);
// All pixels of a view as it is shown, row by row, four bytes each.
std::string picture_of(BView* view);


#endif // USER_INPUT_H
