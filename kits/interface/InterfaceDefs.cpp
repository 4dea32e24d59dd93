/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <InterfaceDefs.h>


// What a fresh system shows.
static const struct {
	color_which which;
	rgb_color color;
} kDefaultColors[] = {
	{B_PANEL_BACKGROUND_COLOR, {216, 216, 216, 255}},
	{B_MENU_BACKGROUND_COLOR, {216, 216, 216, 255}},
	{B_KEYBOARD_NAVIGATION_COLOR, {0, 0, 229, 255}},
	{B_MENU_SELECTED_BACKGROUND_COLOR, {153, 153, 153, 255}},
	{B_MENU_ITEM_TEXT_COLOR, {0, 0, 0, 255}},
	{B_MENU_SELECTED_ITEM_TEXT_COLOR, {0, 0, 0, 255}},
	{B_PANEL_TEXT_COLOR, {0, 0, 0, 255}},
	{B_DOCUMENT_BACKGROUND_COLOR, {255, 255, 255, 255}},
	{B_DOCUMENT_TEXT_COLOR, {0, 0, 0, 255}},
	{B_CONTROL_BACKGROUND_COLOR, {245, 245, 245, 255}},
	{B_CONTROL_TEXT_COLOR, {0, 0, 0, 255}},
	{B_CONTROL_BORDER_COLOR, {172, 172, 172, 255}},
	{B_CONTROL_HIGHLIGHT_COLOR, {115, 120, 184, 255}},
	{B_SHINE_COLOR, {255, 255, 255, 255}},
	{B_SHADOW_COLOR, {0, 0, 0, 255}},
	{B_TOOL_TIP_BACKGROUND_COLOR, {255, 255, 216, 255}},
	{B_TOOL_TIP_TEXT_COLOR, {0, 0, 0, 255}},
	{B_LIST_BACKGROUND_COLOR, {255, 255, 255, 255}},
	{B_LIST_SELECTED_BACKGROUND_COLOR, {190, 190, 190, 255}},
	{B_LIST_ITEM_TEXT_COLOR, {0, 0, 0, 255}},
	{B_LIST_SELECTED_ITEM_TEXT_COLOR, {0, 0, 0, 255}},
	{B_LINK_TEXT_COLOR, {51, 102, 187, 255}},
	{B_LINK_VISITED_COLOR, {145, 112, 155, 255}},
};


/*!	The color of a part of the interface: always the system's default ones. Black for an unknown
	one.
*/
rgb_color
ui_color(color_which which)
{
	for (const auto& entry : kDefaultColors) {
		if (entry.which == which)
			return entry.color;
	}
	return make_color(0, 0, 0);
}


/*!	A lighter shade for a tint below 1, down to white at 0, and a darker one above it, up to black
	at 2.
*/
rgb_color
tint_color(rgb_color color, float tint)
{
	const auto shade = [tint](uint8 value) {
		if (tint < 1)
			return static_cast<uint8>(255 - (255 - value) * tint);
		return static_cast<uint8>(value * (2 - tint));
	};
	return make_color(shade(color.red), shade(color.green), shade(color.blue), color.alpha);
}
