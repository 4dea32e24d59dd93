/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef INTERFACE_DEFS_H
#define INTERFACE_DEFS_H


#include <GraphicsDefs.h>
#include <SupportDefs.h>


// What BView::KeyDown() gets for the keys that type no character.
enum {
	B_BACKSPACE = 0x08,
	B_ENTER = 0x0a,
	B_SPACE = 0x20,
	B_TAB = 0x09,
	B_ESCAPE = 0x1b,
	B_LEFT_ARROW = 0x1c,
	B_RIGHT_ARROW = 0x1d,
	B_UP_ARROW = 0x1e,
	B_DOWN_ARROW = 0x1f,
	B_DELETE = 0x7f,
	B_HOME = 0x01,
	B_END = 0x04,
	B_PAGE_UP = 0x0b,
	B_PAGE_DOWN = 0x0c
};

// Modifier keys. The command key, of the shortcuts, is the keyboard's Ctrl.
enum {
	B_SHIFT_KEY = 0x00000001,
	B_COMMAND_KEY = 0x00000002,
	B_CONTROL_KEY = 0x00000004,
	B_OPTION_KEY = 0x00000040
};

enum border_style { B_PLAIN_BORDER, B_FANCY_BORDER, B_NO_BORDER };

enum orientation { B_HORIZONTAL, B_VERTICAL };

// Spacings and insets by their meaning; layouts turn them into pixels.
enum {
	B_USE_DEFAULT_SPACING = -1002,
	B_USE_ITEM_SPACING = -1003,
	B_USE_HALF_ITEM_SPACING = -1004,
	B_USE_HALF_ITEM_INSETS = -1004,
	B_USE_WINDOW_SPACING = -1005,
	B_USE_WINDOW_INSETS = -1005,
	B_USE_SMALL_SPACING = -1006,
	B_USE_SMALL_INSETS = -1006,
	B_USE_CORNER_SPACING = -1007,
	B_USE_BIG_SPACING = -1008,
	B_USE_BORDER_SPACING = -1009
};

enum color_which {
	B_PANEL_BACKGROUND_COLOR = 1,
	B_MENU_BACKGROUND_COLOR = 2,
	B_KEYBOARD_NAVIGATION_COLOR = 4,
	B_MENU_SELECTED_BACKGROUND_COLOR = 6,
	B_MENU_ITEM_TEXT_COLOR = 7,
	B_MENU_SELECTED_ITEM_TEXT_COLOR = 8,
	B_PANEL_TEXT_COLOR = 10,
	B_DOCUMENT_BACKGROUND_COLOR = 11,
	B_DOCUMENT_TEXT_COLOR = 12,
	B_CONTROL_BACKGROUND_COLOR = 13,
	B_CONTROL_TEXT_COLOR = 14,
	B_CONTROL_BORDER_COLOR = 15,
	B_CONTROL_HIGHLIGHT_COLOR = 16,
	B_SHINE_COLOR = 18,
	B_SHADOW_COLOR = 19,
	B_TOOL_TIP_BACKGROUND_COLOR = 20,
	B_TOOL_TIP_TEXT_COLOR = 21,
	B_LIST_BACKGROUND_COLOR = 28,
	B_LIST_SELECTED_BACKGROUND_COLOR = 29,
	B_LIST_ITEM_TEXT_COLOR = 30,
	B_LIST_SELECTED_ITEM_TEXT_COLOR = 31,
	B_LINK_TEXT_COLOR = 33,
	B_LINK_VISITED_COLOR = 35
};

// For tint_color(): below 1 is lighter, above darker.
const float B_LIGHTEN_MAX_TINT = 0.0f;
const float B_LIGHTEN_2_TINT = 0.385f;
const float B_LIGHTEN_1_TINT = 0.590f;
const float B_NO_TINT = 1.0f;
const float B_DARKEN_1_TINT = 1.147f;
const float B_DARKEN_2_TINT = 1.295f;
const float B_DARKEN_3_TINT = 1.407f;
const float B_DARKEN_4_TINT = 1.555f;
const float B_DARKEN_MAX_TINT = 2.0f;

const float B_DISABLED_LABEL_TINT = B_DARKEN_3_TINT;


rgb_color ui_color(color_which which);
rgb_color tint_color(rgb_color color, float tint);


#endif // INTERFACE_DEFS_H
