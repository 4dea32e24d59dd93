/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <WindowLife.h>

#include <QThread>
#include <QWidget>

#include <Application.h>
#include <LooperPrivate.h>
#include <Window.h>


std::vector<BWindow*> WindowLife::sWaiting;


/*!	Whether an event loop of Qt's own is running, as while something is dragged: widgets
	are in use below it.
*/
static bool
is_inside_toolkit_loop()
{
	return QThread::currentThread()->loopLevel() > 0;
}


WindowLife::WindowLife(BWindow* window)
	: fWindow(window),
	  fDepth(0),
	  fIsQuitting(false),
	  fAsksApplication(false)
{
}


void
WindowLife::Quit()
{
	LooperPrivate::BeginDestruction(fWindow);
	if (fDepth > 0)
		fIsQuitting = true;
	else if (is_inside_toolkit_loop())
		sWaiting.push_back(fWindow);
	else
		LooperPrivate::Delete(fWindow);
}


void
WindowLife::LeaveHandler()
{
	if (!_Leave())
		return;

	if (is_inside_toolkit_loop())
		sWaiting.push_back(fWindow);
	else
		LooperPrivate::Delete(fWindow);
}


void
WindowLife::LeaveEvent()
{
	if (_Leave())
		sWaiting.push_back(fWindow);
}


void
WindowLife::RepaintLater(QWidget* widget)
{
	fRepaints.emplace_back(widget);
}


void
WindowLife::DeleteWaiting()
{
	if (is_inside_toolkit_loop())
		return;

	while (!sWaiting.empty()) {
		BWindow* window = sWaiting.back();
		sWaiting.pop_back();
		LooperPrivate::Delete(window);
	}
}


/*!	True when the window is to be deleted now. */
bool
WindowLife::_Leave()
{
	// Whoever is served while the application is told finds that the window is still in use.
	while (fDepth == 1 && fAsksApplication) {
		fAsksApplication = false;
		if (be_app != NULL)
			be_app->PostMessage(B_QUIT_REQUESTED);
	}

	fDepth--;
	if (fDepth > 0)
		return false;

	for (const QPointer<QWidget>& widget : fRepaints) {
		if (widget != NULL)
			widget->update();
	}
	fRepaints.clear();
	return fIsQuitting;
}
