/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TopLevelWidget.h>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QCloseEvent>
#include <QKeyEvent>

#include <WindowPeer.h>


/*!	What a screen reader is given for a window. Without this it would be a group of views, and no
	window at all.
*/
static QAccessibleInterface*
new_accessible_window(const QString&, QObject* object)
{
	TopLevelWidget* widget = dynamic_cast<TopLevelWidget*>(object);
	if (widget == NULL)
		return NULL;
	return new QAccessibleWidget(widget,
		widget->isModal() ? QAccessible::Dialog : QAccessible::Window);
}


TopLevelWidget::TopLevelWidget(WindowPeer* peer, Qt::WindowFlags flags)
	: QWidget(NULL, flags),
	  fPeer(peer)
{
	// A second installation changes nothing.
	QAccessible::installFactory(new_accessible_window);
	setAttribute(Qt::WA_QuitOnClose, false);
}


bool
TopLevelWidget::event(QEvent* event)
{
	const bool result = QWidget::event(event);
	if (event->type() == QEvent::LayoutRequest)
		fPeer->UpdateLayout();
	return result;
}


/*!	The window is asked by a message, in its turn. */
void
TopLevelWidget::closeEvent(QCloseEvent* event)
{
	event->ignore();
	fPeer->CloseRequested();
}


void
TopLevelWidget::keyPressEvent(QKeyEvent* event)
{
	if (!fPeer->KeyPressed(*event))
		QWidget::keyPressEvent(event);
}


void
TopLevelWidget::changeEvent(QEvent* event)
{
	QWidget::changeEvent(event);
	if (event->type() == QEvent::WindowStateChange)
		fPeer->StateChanged();
}
