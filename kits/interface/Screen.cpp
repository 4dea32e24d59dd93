/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Screen.h>

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <GeometryConversion.h>
#include <StrictChecks.h>
#include <Window.h>
#include <WindowPeer.h>


/*!	\param window \c NULL for the main screen. */
BScreen::BScreen(BWindow* window)
{
	CHECK_MAIN_THREAD();
	const QScreen* screen = QGuiApplication::primaryScreen();
	if (window != NULL)
		screen = WindowPeer::Of(window)->Widget()->screen();
	if (screen != NULL)
		fFrame = rect_from_toolkit(screen->geometry());
}


/*!	All of the screen, in pixels. Invalid where there is none. */
BRect
BScreen::Frame()
{
	return fFrame;
}
