/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef VIEW_WIDGET_H
#define VIEW_WIDGET_H


#include <QWidget>


class ViewPeer;


/*!	The widget of a view that draws itself: it hands everything on to the view's peer. */
class ViewWidget : public QWidget {
public:
	explicit ViewWidget(ViewPeer* peer);

	ViewPeer* Peer() const { return fPeer; }

protected:
	void paintEvent(QPaintEvent* event) override;
	void resizeEvent(QResizeEvent* event) override;

private:
	ViewPeer* fPeer;
};


#endif // VIEW_WIDGET_H
