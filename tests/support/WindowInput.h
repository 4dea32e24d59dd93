/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef WINDOW_INPUT_H
#define WINDOW_INPUT_H


#include <string>
#include <vector>

#include <Point.h>
#include <SupportDefs.h>


class BView;
class BWindow;


// What a user does to a window, and what the window manager is told. For suites with windows.

/*!	The label, as the user reads it, of the item that Return would choose in the open menu; empty
	when none is open.
*/
std::string marked_menu_item();

/*!	The labels in the open menu, each followed by a "|", those that cannot be chosen in parentheses.
*/
std::string shown_menu_items();

/*!	Moves the inside of the window to a place on the screen. */
void move_window(BWindow* window, BPoint leftTop);

/*!	Uses the close box. */
void use_close_box(BWindow* window);

/*!	The title as it is shown, minimized or not. */
std::string shown_title(BWindow* window);
bool is_shown_minimized(BWindow* window);
bool is_shown(BWindow* window);
/*!	The widths, in pixels, of the pictures that the window manager is offered for the window. */
std::vector<int> icon_widths(BWindow* window);
/*!	What the window manager is asked to put on the title bar, of "close", "minimize" and "zoom", in
	this order.
*/
std::string offered_boxes(BWindow* window);
/*!	Whether the window keeps the others from being used. */
bool is_shown_modal(BWindow* window);
/*!	The window above which it is kept, NULL for none. */
bool is_kept_above(BWindow* window, BWindow* other);

/*!	What the tool tip of a view says, as the user reads it. */
std::string shown_tool_tip(BView* view);
/*!	What the tool tip on the screen says, as the user reads it; empty when there is none. */
std::string tool_tip_on_screen();
/*!	Whether no part of it is cut off by an edge of the screen, or by its own. */
bool is_tool_tip_whole();

/*!	Types a path into the file panel that is open, and presses Return, Escape or another key. False
	when there is none.
*/
bool type_into_file_panel(const char* path);
bool cancel_file_panel();
bool is_file_panel_active();
bool press_file_panel_key(char key, uint32 modifiers = 0);
/*!	The columns that are seen, each name followed by a "|". */
std::string file_panel_columns();


#endif // WINDOW_INPUT_H
