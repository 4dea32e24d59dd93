/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ACCESSIBLE_VIEW_H
#define ACCESSIBLE_VIEW_H


#include <QAccessibleWidget>


class ViewPeer;
class ViewWidget;


/*!	What a screen reader is given for a view that draws itself: the text that the view draws, as
	that of a label. Without text it is a filler. The view is asked to draw whenever it is asked
	for; nothing of that is seen. Main thread only.
*/
class AccessibleView : public QAccessibleWidget {
public:
	// Has such views described so from now on. Doing it again changes nothing.
	static void Install();

	explicit AccessibleView(ViewWidget* widget);

	QAccessible::Role role() const override;
	QString text(QAccessible::Text kind) const override;

private:
	QString _DrawnText() const;
};


#endif // ACCESSIBLE_VIEW_H
