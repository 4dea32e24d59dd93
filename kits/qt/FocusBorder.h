/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FOCUS_BORDER_H
#define FOCUS_BORDER_H


class QEvent;
class QFrame;


/*!	Shows by the color of its border whether what scrolls has the keyboard, as Haiku does; QStyle
	does so for fields and buttons only. For a frame's event(), after Qt has handled the event.
	Nothing for frames without a border.
*/
void show_focus_by_border(QFrame* frame, const QEvent* event);


#endif // FOCUS_BORDER_H
