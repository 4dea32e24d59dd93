/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "WindowInput.h"

#include <cctype>

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>
#include <QWindow>

#include <ViewPeer.h>
#include <Window.h>
#include <WindowPeer.h>


// What the toolkit's own tests use: looks the shortcut up, and says whether there was one.
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* object, ulong timestamp, int key,
	Qt::KeyboardModifiers modifiers, const QString& text = QString(), bool isRepeated = false,
	ushort count = 1);


static int
toolkit_key(char key)
{
	switch (key) {
		case B_ENTER:
			return Qt::Key_Return;
		case B_ESCAPE:
			return Qt::Key_Escape;
		case B_TAB:
			return Qt::Key_Tab;
		case B_LEFT_ARROW:
			return Qt::Key_Left;
		case B_RIGHT_ARROW:
			return Qt::Key_Right;
		case B_UP_ARROW:
			return Qt::Key_Up;
		case B_DOWN_ARROW:
			return Qt::Key_Down;
		case B_HOME:
			return Qt::Key_Home;
		case B_END:
			return Qt::Key_End;
		case B_PAGE_UP:
			return Qt::Key_PageUp;
		case B_PAGE_DOWN:
			return Qt::Key_PageDown;
		default:
			return toupper(key);
	}
}


static Qt::KeyboardModifiers
toolkit_modifiers(uint32 modifiers)
{
	Qt::KeyboardModifiers keys;
	keys.setFlag(Qt::ControlModifier, (modifiers & B_COMMAND_KEY) != 0);
	keys.setFlag(Qt::ShiftModifier, (modifiers & B_SHIFT_KEY) != 0);
	return keys;
}


/*!	Whether it moves something instead of being typed. */
static bool
is_moving_key(char key)
{
	return (key >= B_LEFT_ARROW && key <= B_DOWN_ARROW) || key == B_HOME || key == B_END
		|| key == B_PAGE_UP || key == B_PAGE_DOWN;
}


static QWidget*
widget_of(BWindow* window)
{
	return WindowPeer::Of(window)->Widget();
}


static QWidget*
key_target(BWindow* window)
{
	if (QApplication::activePopupWidget() != NULL)
		return QApplication::activePopupWidget();
	QWidget* focus = widget_of(window)->focusWidget();
	return focus != NULL ? focus : widget_of(window);
}


static void
send_key(QWidget* target, int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
	QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
	QApplication::sendEvent(target, &press);
	QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
	QApplication::sendEvent(target, &release);
}


/*!	Shortcuts come first, as for a user; the focus is where the window has it, active or not. */
void
press_window_key(BWindow* window, char key, uint32 modifiers)
{
	const Qt::KeyboardModifiers keys = toolkit_modifiers(modifiers);
	QWidget* target = key_target(window);
	const bool hasText = keys == Qt::NoModifier && !is_moving_key(key);
	const QString text = hasText ? QString(QLatin1Char(key)) : QString();

	if (!qt_sendShortcutOverrideEvent(target, 0, toolkit_key(key), keys, text))
		send_key(target, toolkit_key(key), keys, text);
}


void
press_menu_key(BWindow* window)
{
	send_key(key_target(window), Qt::Key_F10, Qt::NoModifier, QString());
}


std::string
marked_menu_item()
{
	const QMenu* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
	if (menu == NULL || menu->activeAction() == NULL)
		return std::string();
	// As it is drawn: two of them stand for one, one alone would underline the letter behind it.
	return menu->activeAction()
		->text()
		.replace(QLatin1String("&&"), QLatin1String("&"))
		.toStdString();
}


std::string
shown_menu_items()
{
	std::string labels;
	const QMenu* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
	if (menu == NULL)
		return labels;
	for (const QAction* action : menu->actions()) {
		if (action->isSeparator())
			continue;
		const std::string label = QString(action->text()).remove(QLatin1Char('&')).toStdString();
		labels += action->isEnabled() ? label + "|" : "(" + label + ")|";
	}
	return labels;
}


void
move_window(BWindow* window, BPoint leftTop)
{
	QWidget* widget = widget_of(window);
	widget->setGeometry(QRect(QPoint(int(leftTop.x), int(leftTop.y)), widget->size()));
}


void
use_close_box(BWindow* window)
{
	widget_of(window)->close();
}


std::string
shown_title(BWindow* window)
{
	const QWindow* handle = widget_of(window)->windowHandle();
	return handle != NULL ? handle->title().toStdString() : std::string();
}


bool
is_shown_minimized(BWindow* window)
{
	return widget_of(window)->isVisible() && widget_of(window)->isMinimized();
}


bool
is_shown(BWindow* window)
{
	return widget_of(window)->isVisible();
}


std::vector<int>
icon_widths(BWindow* window)
{
	std::vector<int> widths;
	for (const QSize& size : widget_of(window)->windowIcon().availableSizes())
		widths.push_back(size.width());
	return widths;
}


std::string
offered_boxes(BWindow* window)
{
	const struct {
		Qt::WindowType hint;
		const char* name;
	} boxes[] = {
		{Qt::WindowCloseButtonHint, "close"},
		{Qt::WindowMinimizeButtonHint, "minimize"},
		{Qt::WindowMaximizeButtonHint, "zoom"},
	};
	std::string names;
	for (const auto& box : boxes) {
		if ((widget_of(window)->windowFlags() & box.hint) != 0)
			names += std::string(names.empty() ? "" : " ") + box.name;
	}
	return names;
}


bool
is_shown_modal(BWindow* window)
{
	return widget_of(window)->isVisible() && widget_of(window)->isModal();
}


bool
is_kept_above(BWindow* window, BWindow* other)
{
	const QWindow* handle = widget_of(window)->windowHandle();
	return handle != NULL && handle->transientParent() == widget_of(other)->windowHandle();
}


static std::string
text_as_read(const QString& text)
{
	if (!Qt::mightBeRichText(text))
		return text.toStdString();
	QTextDocument document;
	document.setHtml(text);
	return document.toPlainText().toStdString();
}


std::string
shown_tool_tip(BView* view)
{
	return text_as_read(ViewPeer::Of(view)->Widget()->toolTip());
}


std::string
tool_tip_on_screen()
{
	return QToolTip::isVisible() ? text_as_read(QToolTip::text()) : std::string();
}


bool
is_tool_tip_whole()
{
	for (const QWidget* widget : QApplication::topLevelWidgets()) {
		if (widget->windowType() == Qt::ToolTip && widget->isVisible()) {
			return widget->screen()->geometry().contains(widget->geometry())
				&& widget->width() >= widget->sizeHint().width()
				&& widget->height() >= widget->sizeHint().height();
		}
	}
	return false;
}


static QFileDialog*
file_panel()
{
	for (QWidget* widget : QApplication::topLevelWidgets()) {
		QFileDialog* dialog = qobject_cast<QFileDialog*>(widget);
		if (dialog != NULL && dialog->isVisible())
			return dialog;
	}
	return NULL;
}


static QLineEdit*
file_panel_field()
{
	return file_panel() != NULL ? file_panel()->findChild<QLineEdit*>() : NULL;
}


bool
type_into_file_panel(const char* path)
{
	QLineEdit* field = file_panel_field();
	if (field == NULL)
		return false;
	field->selectAll();
	field->insert(QFile::decodeName(path));
	send_key(field, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
	return true;
}


bool
cancel_file_panel()
{
	QLineEdit* field = file_panel_field();
	if (field == NULL)
		return false;
	send_key(field, Qt::Key_Escape, Qt::NoModifier, QString());
	return true;
}


bool
is_file_panel_active()
{
	return file_panel() != NULL && file_panel()->isActiveWindow();
}


std::string
file_panel_columns()
{
	std::string names;
	const QHeaderView* header = file_panel() != NULL ? file_panel()->findChild<QHeaderView*>()
													 : NULL;
	for (int i = 0; header != NULL && i < header->count(); i++) {
		if (!header->isSectionHidden(i))
			names += header->model()->headerData(i, Qt::Horizontal).toString().toStdString() + "|";
	}
	return names;
}


bool
press_file_panel_key(char key, uint32 modifiers)
{
	QLineEdit* field = file_panel_field();
	if (field == NULL)
		return false;
	if (!qt_sendShortcutOverrideEvent(field, 0, toolkit_key(key), toolkit_modifiers(modifiers)))
		send_key(field, toolkit_key(key), toolkit_modifiers(modifiers), QString());
	return true;
}
