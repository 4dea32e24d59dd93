/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "UserInput.h"

#include <cstring>

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>

#include <CaretBlink.h>
#include <GeometryConversion.h>
#include <InterfaceDefs.h>
#include <TextWidget.h>
#include <ViewPeer.h>


// What the toolkit's own tests use: as if the event came from the window system.
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
	Qt::MouseButtons buttons, Qt::MouseButton button, QEvent::Type type,
	Qt::KeyboardModifiers modifiers, int timestamp);


void
set_clipboard(const char* text)
{
	QApplication::clipboard()->setText(QString::fromUtf8(text));
}


std::string
clipboard()
{
	return QApplication::clipboard()->text().toStdString();
}


/*!	The widget that the mouse is over at a point of a view, and where that is in it. */
struct MouseTarget {
	MouseTarget(BView* view, const QPoint& where)
		: widget(ViewPeer::Of(view)->Widget()),
		  place(where)
	{
		QAbstractScrollArea* area = qobject_cast<QAbstractScrollArea*>(widget);
		if (area == NULL)
			return;
		place = area->viewport()->mapFrom(area, place);
		widget = area->viewport();
	}

	MouseTarget(BView* view, BPoint where)
		: MouseTarget(view, point_to_toolkit(where).toPoint())
	{
	}

	void Send(QEvent::Type type, bool isDown, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
	{
		const Qt::MouseButtons buttons = isDown ? Qt::LeftButton : Qt::NoButton;
		const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
		QMouseEvent event(type, place, OnScreen(), button, buttons, modifiers);
		QApplication::sendEvent(widget, &event);
	}

	QPoint OnScreen() const { return widget->mapToGlobal(place); }

	QWidget* widget;
	QPoint place;
};


void
click(BView* view, BPoint where)
{
	press_mouse(view, where);
	release_mouse(view, where);
}


void
click_for_focus(BView* view, BPoint where)
{
	// In milliseconds. Clicks that follow each other faster would be one double click.
	static int sTime = 0;
	sTime += 10000;
	const QWidget* widget = ViewPeer::Of(view)->FocusWidget();
	QWindow* window = widget->window()->windowHandle();
	const QPointF place = widget->mapTo(widget->window(), point_to_toolkit(where));
	qt_handleMouseEvent(window, place, window->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
		QEvent::MouseButtonPress, Qt::NoModifier, sTime);
	qt_handleMouseEvent(window, place, window->mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
		QEvent::MouseButtonRelease, Qt::NoModifier, sTime);
}


void
double_click(BView* view, BPoint where)
{
	press_mouse_again(view, where);
	release_mouse(view, where);
}


void
press_mouse_again(BView* view, BPoint where)
{
	click(view, where);
	MouseTarget(view, where).Send(QEvent::MouseButtonDblClick, true);
}


void
point_at(BView* view, BPoint where)
{
	MouseTarget target(view, where);
	QHoverEvent enter(QEvent::HoverEnter, target.place, target.OnScreen(), QPointF(-1, -1));
	QApplication::sendEvent(target.widget, &enter);
	target.Send(QEvent::MouseMove, false);
	QHoverEvent hover(QEvent::HoverMove, target.place, target.OnScreen(), target.place);
	QApplication::sendEvent(target.widget, &hover);
}


void
rest_mouse(BView* view, BPoint where)
{
	const MouseTarget target(view, where);
	QHelpEvent event(QEvent::ToolTip, target.place, target.OnScreen());
	QApplication::sendEvent(target.widget, &event);
}


void
press_mouse(BView* view, BPoint where, uint32 modifiers)
{
	const bool isShifted = (modifiers & B_SHIFT_KEY) != 0;
	MouseTarget(view, where)
		.Send(QEvent::MouseButtonPress, true, isShifted ? Qt::ShiftModifier : Qt::NoModifier);
}


void
drag_mouse(BView* view, BPoint where)
{
	MouseTarget(view, where).Send(QEvent::MouseMove, true);
}


void
release_mouse(BView* view, BPoint where)
{
	MouseTarget(view, where).Send(QEvent::MouseButtonRelease, false);
}


/*!	The toolkit waits within the event that begins a drag. */
void
cancel_next_drag(BView* view)
{
	QApplication::postEvent(ViewPeer::Of(view)->Widget(),
		new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
}


void
open_context_menu(BView* view, BPoint where)
{
	const MouseTarget target(view, where);
	QContextMenuEvent event(QContextMenuEvent::Mouse, target.place, target.OnScreen());
	QApplication::sendEvent(target.widget, &event);
}


void
turn_wheel(BView* view, int notches)
{
	const MouseTarget target(view, QPoint(10, 10));
	QWheelEvent event(target.place, target.OnScreen(), QPoint(),
		QPoint(0, notches * QWheelEvent::DefaultDeltasPerStep), Qt::NoButton, Qt::NoModifier,
		Qt::NoScrollPhase, false);
	QApplication::sendEvent(target.widget, &event);
}


static QScrollBar*
scroll_bar_of(BView* view)
{
	QAbstractScrollArea* area = qobject_cast<QAbstractScrollArea*>(ViewPeer::Of(view)->Widget());
	return area != NULL ? area->verticalScrollBar() : NULL;
}


void
scroll_to_top(BView* view)
{
	if (scroll_bar_of(view) != NULL)
		scroll_bar_of(view)->setValue(0);
}


ScrollState
scroll_state(BView* view)
{
	const QScrollBar* bar = scroll_bar_of(view);
	return {bar->value(), bar->maximum(), bar->pageStep(), bar->singleStep()};
}


void
scroll_to(BView* view, int value)
{
	scroll_bar_of(view)->setValue(value);
}


void
click_scroll_bar(BView* view, scroll_button button)
{
	static const QAbstractSlider::SliderAction kActions[] = {QAbstractSlider::SliderSingleStepSub,
		QAbstractSlider::SliderSingleStepAdd, QAbstractSlider::SliderPageStepSub,
		QAbstractSlider::SliderPageStepAdd};
	scroll_bar_of(view)->triggerAction(kActions[button]);
}


static QAccessibleInterface*
interface_of(BView* view)
{
	return QAccessible::queryAccessibleInterface(ViewPeer::Of(view)->FocusWidget());
}


static Accessible
describe(QAccessibleInterface* interface)
{
	Accessible result = {};
	if (interface == NULL)
		return result;
	const QAccessible::State state = interface->state();
	const QRect rect = interface->rect();
	result.name = interface->text(QAccessible::Name).toStdString();
	result.description = interface->text(QAccessible::Description).toStdString();
	if (interface->textInterface() != NULL) {
		QAccessibleTextInterface* text = interface->textInterface();
		result.text = text->text(0, text->characterCount()).toStdString();
	}
	result.isLabel = interface->role() == QAccessible::StaticText;
	result.isPassword = state.passwordEdit;
	result.isReadOnly = state.readOnly;
	result.isMultiLine = state.multiLine;
	result.isFocusable = state.focusable;
	result.isSelected = state.selected;
	result.childCount = interface->childCount();
	result.left = rect.left();
	result.top = rect.top();
	result.width = rect.width();
	result.height = rect.height();
	return result;
}


Accessible
accessible_of(BView* view)
{
	return describe(interface_of(view));
}


Accessible
accessible_of_row(BView* list, int row)
{
	return describe(interface_of(list)->child(row));
}


std::string
accessible_attributes(BView* view, int position)
{
	int start = 0;
	int end = 0;
	return interface_of(view)->textInterface()->attributes(position, &start, &end).toStdString();
}


bool
waits_for_frame(BView* view)
{
	return ViewPeer::Of(view)->IsFlushScheduled();
}


int
laid_out_units(BView* view)
{
	return dynamic_cast<TextWidget*>(ViewPeer::Of(view)->Widget())->CountLaidOut();
}


int
accessible_position_at(BView* view, BPoint where)
{
	return interface_of(view)->textInterface()->offsetAtPoint(
		ViewPeer::Of(view)->Widget()->mapToGlobal(point_to_toolkit(where).toPoint()));
}


bool
carets_blink()
{
	return QApplication::cursorFlashTime() > 0;
}


void
rest_carets_after(int milliseconds)
{
	CaretBlink::Default()->SetRestAfter(milliseconds);
}


unsigned
pixel_of(BView* view, BPoint where)
{
	QWidget* widget = ViewPeer::Of(view)->Widget();
	return widget->grab().toImage().pixel(point_to_toolkit(where).toPoint()) & 0xffffff;
}


std::string
picture_of(BView* view)
{
	const QImage image = ViewPeer::Of(view)->Widget()->grab().toImage().convertToFormat(
		QImage::Format_RGB32);
	return std::string(reinterpret_cast<const char*>(image.constBits()),
		static_cast<size_t>(image.sizeInBytes()));
}
