/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ViewWidgetPrivate.h>

#include <QCursor>
#include <QMouseEvent>

#include <AccessibleViewPrivate.h>
#include <ViewPeer.h>


ViewWidget::ViewWidget(ViewPeer* peer)
	: fPeer(peer)
{
	AccessibleView::Install();
}


void
ViewWidget::paintEvent(QPaintEvent* event)
{
	fPeer->Paint(event);
}


void
ViewWidget::mousePressEvent(QMouseEvent* event)
{
	fPeer->MousePress(event->position());
}


void
ViewWidget::mouseReleaseEvent(QMouseEvent* event)
{
	fPeer->MouseRelease(event->position());
}


void
ViewWidget::mouseMoveEvent(QMouseEvent* event)
{
	fPeer->MouseMove(event->position(),
		rect().contains(event->position().toPoint()) ? B_INSIDE_VIEW : B_OUTSIDE_VIEW);
}


void
ViewWidget::enterEvent(QEnterEvent* event)
{
	fPeer->MouseMove(event->position(), B_ENTERED_VIEW);
}


void
ViewWidget::leaveEvent(QEvent* /*event*/)
{
	fPeer->MouseMove(mapFromGlobal(QCursor::pos()), B_EXITED_VIEW);
}


void
ViewWidget::keyPressEvent(QKeyEvent* event)
{
	fPeer->KeyPress(event);
}


void
ViewWidget::resizeEvent(QResizeEvent* /*event*/)
{
	fPeer->Resize();
}
