/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <KeyConversion.h>

#include <cctype>

#include <InterfaceDefs.h>


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


uint32
modifiers_from_toolkit(Qt::KeyboardModifiers held)
{
	uint32 modifiers = 0;
	if ((held & Qt::ControlModifier) != 0)
		modifiers |= B_COMMAND_KEY;
	if ((held & Qt::ShiftModifier) != 0)
		modifiers |= B_SHIFT_KEY;
	if ((held & Qt::AltModifier) != 0)
		modifiers |= B_OPTION_KEY;
	if ((held & Qt::MetaModifier) != 0)
		modifiers |= B_CONTROL_KEY;
	return modifiers;
}
