/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ViewPeer.h>

#include <QLayout>
#include <QPainter>
#include <QPaintEvent>

#include <ClientScope.h>
#include <ColorConversion.h>
#include <FontConversion.h>
#include <GeometryConversion.h>
#include <TextConversion.h>
#include <ToolTipPrivate.h>
#include <ViewWidget.h>
#include <Window.h>
#include <WindowPeer.h>


ViewPeer::ViewPeer()
	: ViewPeer(new ViewWidget(this))
{
	fWidget->setAttribute(Qt::WA_OpaquePaintEvent);
}


ViewPeer::ViewPeer(QWidget* widget)
	: fView(NULL),
	  fWidget(widget)
{
}


ViewPeer::~ViewPeer()
{
	delete fWidget;
}


ViewPeer*
ViewPeer::Of(const BView* view)
{
	return view->fPeer;
}


QWidget*
ViewPeer::FocusWidget() const
{
	return fWidget;
}


QSize
ViewPeer::MinSize()
{
	const QLayout* layout = fWidget->layout();
	return layout != NULL ? layout->totalMinimumSize() : QSize(1, 1);
}


QSize
ViewPeer::MaxSize()
{
	const QLayout* layout = fWidget->layout();
	return layout != NULL ? layout->totalMaximumSize() : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}


QSize
ViewPeer::PreferredSize()
{
	const QLayout* layout = fWidget->layout();
	return layout != NULL ? layout->totalSizeHint() : QSize(1, 1);
}


void
ViewPeer::FontChanged()
{
	fWidget->setFont(font_to_toolkit(fCanvas.font));
	InvalidateLayout();
}


void
ViewPeer::ColorsChanged()
{
}


void
ViewPeer::FlagsChanged()
{
	const bool navigable = (fView->Flags() & B_NAVIGABLE) != 0;
	FocusWidget()->setFocusPolicy(navigable ? Qt::TabFocus : Qt::NoFocus);
}


void
ViewPeer::ToolTipChanged(const char* text)
{
	fWidget->setToolTip(text_from_bytes(text, kToolTipText));
	// Screen readers would be given the markup that keeps the tool tip from being taken for some.
	fWidget->setAccessibleDescription(text_from_bytes(text));
}


std::vector<std::string>
ViewPeer::DrawnStrings()
{
	std::vector<std::string> strings;
	if (fView == NULL || fView->Window() == NULL)
		return strings;
	DrawScope scope(this, NULL);
	if (!scope.MayDraw())
		return strings;
	const Canvas canvas = fCanvas;
	fCanvas.SetRecorder(&strings);
	fView->Draw(fView->Bounds());
	fCanvas = canvas;
	return strings;
}


void
ViewPeer::InvalidateLayout()
{
	fWidget->updateGeometry();
}


void
ViewPeer::Paint(QPaintEvent* event)
{
	QPainter painter(fWidget);
	painter.fillRect(event->rect(), color_to_toolkit(fCanvas.viewColor));

	DrawScope scope(this, &painter);
	if (scope.MayDraw())
		fView->Draw(rect_from_toolkit(event->rect()));
}


void
ViewPeer::Resize()
{
	if (fView == NULL || (fView->Flags() & B_FRAME_EVENTS) == 0)
		return;

	ClientScope scope(fView->Window());
	if (scope.MayEnter())
		fView->FrameResized(fView->Bounds().Width(), fView->Bounds().Height());
}


void
ViewPeer::Flush()
{
}


void
ViewPeer::HideToolTip()
{
	if (fView != NULL && fView->fToolTip != NULL)
		fView->fToolTip->Hide();
}


// #pragma mark - DrawScope


DrawScope::DrawScope(ViewPeer* peer, QPainter* painter)
	: fCanvas(peer->GetCanvas()),
	  fOuterPainter(fCanvas->Painter()),
	  fScope(std::make_unique<ClientScope>(peer->View()->Window())),
	  fMayDraw(fScope->MayEnter())
{
	fCanvas->SetPainter(painter);
	if (!fMayDraw)
		WindowPeer::Of(peer->View()->Window())->Life()->RepaintLater(peer->Widget());
}


DrawScope::~DrawScope()
{
	fCanvas->SetPainter(fOuterPainter);
}
