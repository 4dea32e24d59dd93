/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TOOL_TIP_PRIVATE_H
#define TOOL_TIP_PRIVATE_H


#include <QString>


class QPoint;
class QRect;
class QWidget;


/*!	What shows while the mouse rests over a view, which owns it. The client hands it on without
	knowing what it is. One that is on the screen leaves it when its text changes, and when it is
	deleted. Main thread only.
*/
class BToolTip {
public:
	explicit BToolTip(const char* text);
	BToolTip(const BToolTip&) = delete;
	~BToolTip();

	BToolTip& operator=(const BToolTip&) = delete;

	void SetText(const char* text);

	// Until the mouse leaves the area of the widget. The place is the mouse's, on the screen.
	void Show(const QPoint& place, QWidget* widget, const QRect& area) const;
	void Hide() const;

private:
	QString fMarkup;
};


#endif // TOOL_TIP_PRIVATE_H
