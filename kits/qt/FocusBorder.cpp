/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <FocusBorder.h>

#include <QEvent>
#include <QFrame>
#include <QPainter>


// In percent, as Qt's Fusion style darkens the color for fields.
static const int kDarkness = 125;


static void
draw_border(QFrame* frame)
{
	const QColor color = frame->palette().color(QPalette::Highlight).darker(kDarkness);
	const QRect rect = frame->rect();
	QPainter painter(frame);
	painter.fillRect(rect.left(), rect.top(), rect.width(), 1, color);
	painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, color);
	painter.fillRect(rect.left(), rect.top(), 1, rect.height(), color);
	painter.fillRect(rect.right(), rect.top(), 1, rect.height(), color);
}


void
show_focus_by_border(QFrame* frame, const QEvent* event)
{
	if (frame->frameWidth() == 0)
		return;

	switch (event->type()) {
		case QEvent::FocusIn:
		case QEvent::FocusOut:
			frame->update();
			break;
		case QEvent::Paint:
			if (frame->hasFocus())
				draw_border(frame);
			break;
		default:
			break;
	}
}
