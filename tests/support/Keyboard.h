/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef KEYBOARD_H
#define KEYBOARD_H


#include <SupportDefs.h>


class BView;
class BWindow;
class QWidget;


// What a user does with the keyboard. For suites with windows.

enum user_key {
	kKeyCharacter,
	kKeyReturn,
	kKeyBackspace,
	kKeyUp,
	kKeyDown,
	kKeyHome,
	kKeyEnd,
	kKeySelectAll,
	// With the shift key held.
	kKeySelectToStart,
	kKeySelectRight,
	kKeyPaste
};

void press_key(BView* view, user_key key, const char* text = "");
void type_text(BView* view, const char* text);

/*!	Presses a key in the window, in the menu that is open or where its focus is; with B_COMMAND_KEY
	and the like.
	\param key A character, or one of B_ENTER, B_ESCAPE, B_TAB, B_SPACE, the arrows, B_HOME, B_END,
	B_PAGE_UP and B_PAGE_DOWN.
*/
void press_window_key(BWindow* window, char key, uint32 modifiers = 0);

/*!	Presses the key that opens the menu bar. */
void press_menu_key(BWindow* window);

/*!	The same as in a window, for what only the toolkit knows. */
void press_widget_key(QWidget* widget, char key, uint32 modifiers = 0);


#endif // KEYBOARD_H
