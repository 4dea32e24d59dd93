/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TopLevelWidgetPrivate.h>

#include <QCloseEvent>
#include <QKeyEvent>

#include <WindowPeer.h>


TopLevelWidget::TopLevelWidget(WindowPeer* peer, Qt::WindowFlags flags)
	: QWidget(NULL, flags),
	  fPeer(peer)
{
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
