/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef VIEW_PEER_H
#define VIEW_PEER_H


#include <memory>
#include <string>
#include <vector>

#include <QSize>

#include <Canvas.h>
#include <FrameScheduler.h>
#include <View.h>


class ClientScope;
class QPainter;
class QPaintEvent;
class QWidget;


/*!	What stands for a view: a QWidget, what the view draws with, and what it wants of
	the next frame.
	The view owns its peer, the peer its widget. This class serves plain views, which draw
	themselves; views that Qt draws have a peer of their own. Main thread only.
*/
class ViewPeer : public FrameClient {
public:
	// For a plain view.
	ViewPeer();
	// Takes a widget without a parent over; it gets one when the view is added to another one.
	explicit ViewPeer(QWidget* widget);
	~ViewPeer() override;

	static ViewPeer* Of(const BView* view);

	// NULL until the view's constructor has taken the peer over.
	BView* View() const { return fView; }
	QWidget* Widget() const { return fWidget; }
	Canvas* GetCanvas() { return &fCanvas; }

	// Which widget takes the keyboard.
	virtual QWidget* FocusWidget() const;

	// The view's sizes but for the explicit ones, in pixels. By default its layout's; without one
	// it may have any.
	virtual QSize MinSize();
	virtual QSize MaxSize();
	virtual QSize PreferredSize();
	// Where it stands in a place that is larger than it may be: in the middle by default.
	virtual Qt::Alignment Alignment() const { return Qt::AlignCenter; }

	// After a change in the canvas, in the flags, and of the tool tip.
	virtual void FontChanged();
	virtual void ColorsChanged();
	virtual void FlagsChanged();
	virtual void ToolTipChanged(const char* text);

	// What a plain view draws as text, in order. It is asked to draw all of it, but nothing is seen
	// of that.
	std::vector<std::string> DrawnStrings();

	// Tells the layouts above that the view's sizes have changed.
	void InvalidateLayout();

	// What the widget of a plain view or of a list reports.
	void Paint(QPaintEvent* event);
	void Resize();

protected:
	// For those that collect changes.
	void Flush() override;
	// What is under the mouse has changed.
	void HideToolTip();

private:
	friend class BView;

	BView* fView;
	QWidget* fWidget;
	Canvas fCanvas;
};


/*!	While it lives a view draws with a painter whose origin is the view's. The client's code is not
	run where its window is inside of one of its handlers, or is on its way out; the widget is
	painted again when the handler is left.
*/
class DrawScope {
public:
	DrawScope(ViewPeer* peer, QPainter* painter);
	DrawScope(const DrawScope&) = delete;
	~DrawScope();

	DrawScope& operator=(const DrawScope&) = delete;

	bool MayDraw() const { return fMayDraw; }

private:
	Canvas* fCanvas;
	QPainter* fOuterPainter;
	std::unique_ptr<ClientScope> fScope;
	bool fMayDraw;
};


#endif // VIEW_PEER_H
