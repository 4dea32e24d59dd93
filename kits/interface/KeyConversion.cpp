/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <KeyConversionPrivate.h>

#include <cctype>

#include <QKeyEvent>

#include <InterfaceDefs.h>


static const struct {
	int key;
	char code;
} kFunctionKeys[] = {
	{Qt::Key_Return, B_ENTER},
	{Qt::Key_Enter, B_ENTER},
	{Qt::Key_Escape, B_ESCAPE},
	{Qt::Key_Backspace, B_BACKSPACE},
	{Qt::Key_Tab, B_TAB},
	{Qt::Key_Left, B_LEFT_ARROW},
	{Qt::Key_Right, B_RIGHT_ARROW},
	{Qt::Key_Up, B_UP_ARROW},
	{Qt::Key_Down, B_DOWN_ARROW},
	{Qt::Key_Insert, B_INSERT},
	{Qt::Key_Delete, B_DELETE},
	{Qt::Key_Home, B_HOME},
	{Qt::Key_End, B_END},
	{Qt::Key_PageUp, B_PAGE_UP},
	{Qt::Key_PageDown, B_PAGE_DOWN},
};


QByteArray
bytes_of_key(const QKeyEvent& event)
{
	for (const auto& entry : kFunctionKeys) {
		if (entry.key == event.key())
			return QByteArray(1, entry.code);
	}
	return event.text().toUtf8();
}


QKeySequence
keys_of_shortcut(char shortcut, uint32 modifiers)
{
	if (shortcut == 0)
		return QKeySequence();

	int keys = toupper(static_cast<unsigned char>(shortcut));
	if ((modifiers & B_COMMAND_KEY) != 0)
		keys |= Qt::ControlModifier;
	if ((modifiers & B_SHIFT_KEY) != 0)
		keys |= Qt::ShiftModifier;
	if ((modifiers & B_OPTION_KEY) != 0)
		keys |= Qt::AltModifier;
	if ((modifiers & B_CONTROL_KEY) != 0)
		keys |= Qt::MetaModifier;
	return QKeySequence(keys);
}
