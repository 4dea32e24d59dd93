/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Keyboard.h"

#include <cctype>

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <InterfaceDefs.h>
#include <ViewPeer.h>
#include <WindowPeer.h>


// What the toolkit's own tests use: looks the shortcut up, and says whether there was one.
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* object, ulong timestamp, int key,
	Qt::KeyboardModifiers modifiers, const QString& text = QString(), bool isRepeated = false,
	ushort count = 1);


static const Qt::KeyboardModifiers kControlShift = Qt::ControlModifier | Qt::ShiftModifier;

// In the order of user_key.
static const struct {
	int key;
	Qt::KeyboardModifiers modifiers;
} kUserKeys[] = {
	{0, Qt::NoModifier},
	{Qt::Key_Return, Qt::NoModifier},
	{Qt::Key_Backspace, Qt::NoModifier},
	{Qt::Key_Up, Qt::NoModifier},
	{Qt::Key_Down, Qt::NoModifier},
	{Qt::Key_Home, Qt::ControlModifier},
	{Qt::Key_End, Qt::ControlModifier},
	{Qt::Key_A, Qt::ControlModifier},
	{Qt::Key_Home, kControlShift},
	{Qt::Key_Right, Qt::ShiftModifier},
	{Qt::Key_V, Qt::ControlModifier},
};

static const struct {
	char code;
	Qt::Key key;
} kNamedKeys[] = {
	{B_ENTER, Qt::Key_Return},
	{B_ESCAPE, Qt::Key_Escape},
	{B_TAB, Qt::Key_Tab},
	{B_LEFT_ARROW, Qt::Key_Left},
	{B_RIGHT_ARROW, Qt::Key_Right},
	{B_UP_ARROW, Qt::Key_Up},
	{B_DOWN_ARROW, Qt::Key_Down},
	{B_HOME, Qt::Key_Home},
	{B_END, Qt::Key_End},
	{B_PAGE_UP, Qt::Key_PageUp},
	{B_PAGE_DOWN, Qt::Key_PageDown},
};


static void
send_key(QWidget* widget, int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
	QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
	QApplication::sendEvent(widget, &press);
	QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
	QApplication::sendEvent(widget, &release);
}


/*!	Keys go to the focus widget of the view, whether or not its window is active. */
void
press_key(BView* view, user_key key, const char* text)
{
	send_key(ViewPeer::Of(view)->FocusWidget(), kUserKeys[key].key, kUserKeys[key].modifiers,
		QString::fromUtf8(key == kKeyReturn ? "\r" : text));
}


/*!	Character by character. */
void
type_text(BView* view, const char* text)
{
	for (const QChar character : QString::fromUtf8(text))
		press_key(view, kKeyCharacter, QString(character).toUtf8().constData());
}


static QWidget*
key_target(BWindow* window)
{
	if (QApplication::activePopupWidget() != NULL)
		return QApplication::activePopupWidget();
	QWidget* widget = WindowPeer::Of(window)->Widget();
	return widget->focusWidget() != NULL ? widget->focusWidget() : widget;
}


/*!	The focus is where the window has it, active or not. */
void
press_window_key(BWindow* window, char key, uint32 modifiers)
{
	press_widget_key(key_target(window), key, modifiers);
}


void
press_menu_key(BWindow* window)
{
	send_key(key_target(window), Qt::Key_F10, Qt::NoModifier, QString());
}


static int
toolkit_key(char code)
{
	for (const auto& named : kNamedKeys) {
		if (named.code == code)
			return named.key;
	}
	return toupper(code);
}


/*!	Shortcuts come first, as for a user. */
void
press_widget_key(QWidget* widget, char code, uint32 modifiers)
{
	Qt::KeyboardModifiers held;
	held.setFlag(Qt::ControlModifier, (modifiers & B_COMMAND_KEY) != 0);
	held.setFlag(Qt::ShiftModifier, (modifiers & B_SHIFT_KEY) != 0);
	const int key = toolkit_key(code);
	const bool moves = key >= Qt::Key_Home && key <= Qt::Key_PageDown;
	const QString text = held == Qt::NoModifier && !moves ? QString(QLatin1Char(code)) : QString();

	if (!qt_sendShortcutOverrideEvent(widget, 0, key, held, text))
		send_key(widget, key, held, text);
}
