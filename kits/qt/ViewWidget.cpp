/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ViewWidget.h>

#include <QCursor>
#include <QMouseEvent>

#include <AccessibleView.h>
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
ViewWidget::resizeEvent(QResizeEvent* /*event*/)
{
	fPeer->Resize();
}
