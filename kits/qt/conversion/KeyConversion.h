/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef KEY_CONVERSION_H
#define KEY_CONVERSION_H


#include <QKeySequence>

#include <SupportDefs.h>


// The keys that are typed for a menu item's shortcut: the command key is Ctrl, the control key
// Meta.
QKeySequence keys_of_shortcut(char shortcut, uint32 modifiers);

// The same the other way around, for the keys that are held.
uint32 modifiers_from_toolkit(Qt::KeyboardModifiers held);


#endif // KEY_CONVERSION_H
