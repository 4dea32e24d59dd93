/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef WINDOW_LIFE_H
#define WINDOW_LIFE_H


#include <vector>

#include <QPointer>


class BWindow;
class QWidget;


/*!	Knows whether the client's code is running for a window, and lets it die only when it is not. A
	window that quits while one of its handlers is further up the stack, waiting, is deleted when
	that is left. Main thread only.
*/
class WindowLife {
public:
	explicit WindowLife(BWindow* window);

	// Deletes the window, now or as soon as that is safe. It takes no more messages from here on.
	void Quit();

	// Around every handler. The window may be gone after LeaveHandler().
	void EnterHandler() { fDepth++; }
	void LeaveHandler();
	// Around the client's code in an event of Qt's, where the window may not be deleted.
	void LeaveEvent();

	// Could not be asked to quit now; the application is asked again when it can.
	void AskApplicationAgain() { fAsksApplication = true; }
	// Paints again, once it can, a widget that could not be painted now.
	void RepaintLater(QWidget* widget);

	// Those whose end had to wait for Qt. For the event loops, which are inside of no
	// event then.
	static void DeleteWaiting();

private:
	bool _Leave();

	BWindow* fWindow;
	int fDepth;
	bool fIsQuitting;
	bool fAsksApplication;
	std::vector<QPointer<QWidget>> fRepaints;

	static std::vector<BWindow*> sWaiting;
};


#endif // WINDOW_LIFE_H
