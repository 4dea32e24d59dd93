/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef KEY_CONVERSION_PRIVATE_H
#define KEY_CONVERSION_PRIVATE_H


#include <QByteArray>
#include <QKeySequence>

#include <SupportDefs.h>


class QKeyEvent;


// What BView::KeyDown() gets for a key: its characters in UTF-8 or the code of its function; empty for a modifier alone.
QByteArray bytes_of_key(const QKeyEvent& event);

// The keys that are typed for a menu item's shortcut: the command key is Ctrl, the control key Meta.
QKeySequence keys_of_shortcut(char shortcut, uint32 modifiers);


#endif // KEY_CONVERSION_PRIVATE_H
