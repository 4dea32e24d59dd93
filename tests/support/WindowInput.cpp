/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "WindowInput.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QIcon>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>
#include <QWindow>

#include <InterfaceDefs.h>
#include <ViewPeer.h>
#include <Window.h>
#include <WindowPeer.h>

#include "Keyboard.h"


static QWidget*
widget_of(BWindow* window)
{
	return WindowPeer::Of(window)->Widget();
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
	widget->setGeometry(
		QRect(QPoint(static_cast<int>(leftTop.x), static_cast<int>(leftTop.y)), widget->size()));
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
	return press_file_panel_key(B_ENTER);
}


bool
cancel_file_panel()
{
	return press_file_panel_key(B_ESCAPE);
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
	press_widget_key(field, key, modifiers);
	return true;
}
