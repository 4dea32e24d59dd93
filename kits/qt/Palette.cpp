/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Palette.h>

#include <QPalette>

#include <ColorConversion.h>
#include <InterfaceDefs.h>


static QColor
shade(color_which which, float tint = B_NO_TINT)
{
	return color_to_toolkit(tint_color(ui_color(which), tint));
}


QPalette
make_palette()
{
	QPalette palette;
	palette.setColor(QPalette::Window, shade(B_PANEL_BACKGROUND_COLOR));
	palette.setColor(QPalette::WindowText, shade(B_PANEL_TEXT_COLOR));
	palette.setColor(QPalette::Base, shade(B_DOCUMENT_BACKGROUND_COLOR));
	palette.setColor(QPalette::AlternateBase, shade(B_DOCUMENT_BACKGROUND_COLOR));
	palette.setColor(QPalette::Text, shade(B_DOCUMENT_TEXT_COLOR));
	palette.setColor(QPalette::Button, shade(B_CONTROL_BACKGROUND_COLOR));
	palette.setColor(QPalette::ButtonText, shade(B_CONTROL_TEXT_COLOR));
	palette.setColor(QPalette::BrightText, shade(B_SHINE_COLOR));
	palette.setColor(QPalette::Light, shade(B_PANEL_BACKGROUND_COLOR, B_LIGHTEN_MAX_TINT));
	palette.setColor(QPalette::Midlight, shade(B_PANEL_BACKGROUND_COLOR, B_LIGHTEN_1_TINT));
	palette.setColor(QPalette::Mid, shade(B_PANEL_BACKGROUND_COLOR, B_DARKEN_2_TINT));
	palette.setColor(QPalette::Dark, shade(B_PANEL_BACKGROUND_COLOR, B_DARKEN_3_TINT));
	palette.setColor(QPalette::Shadow, shade(B_PANEL_BACKGROUND_COLOR, B_DARKEN_4_TINT));
	palette.setColor(QPalette::Highlight, shade(B_CONTROL_HIGHLIGHT_COLOR));
	palette.setColor(QPalette::HighlightedText, shade(B_SHINE_COLOR));
	palette.setColor(QPalette::ToolTipBase, shade(B_TOOL_TIP_BACKGROUND_COLOR));
	palette.setColor(QPalette::ToolTipText, shade(B_TOOL_TIP_TEXT_COLOR));
	palette.setColor(QPalette::Link, shade(B_LINK_TEXT_COLOR));
	palette.setColor(QPalette::LinkVisited, shade(B_LINK_VISITED_COLOR));

	const QColor disabled = shade(B_PANEL_BACKGROUND_COLOR, B_DISABLED_LABEL_TINT);
	palette.setColor(QPalette::PlaceholderText, disabled);
	for (QPalette::ColorRole role :
		{QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
		palette.setColor(QPalette::Disabled, role, disabled);
	palette.setColor(QPalette::Disabled, QPalette::Base,
		shade(B_PANEL_BACKGROUND_COLOR, B_LIGHTEN_1_TINT));
	return palette;
}
