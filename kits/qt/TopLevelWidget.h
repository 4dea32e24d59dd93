/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TOP_LEVEL_WIDGET_H
#define TOP_LEVEL_WIDGET_H


#include <QWidget>


class WindowPeer;


/*!	The widget of a window. */
class TopLevelWidget : public QWidget {
public:
	TopLevelWidget(WindowPeer* peer, Qt::WindowFlags flags);

protected:
	bool event(QEvent* event) override;
	void closeEvent(QCloseEvent* event) override;
	void keyPressEvent(QKeyEvent* event) override;
	void changeEvent(QEvent* event) override;

private:
	WindowPeer* fPeer;
};


#endif // TOP_LEVEL_WIDGET_H
