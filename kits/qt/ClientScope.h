/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CLIENT_SCOPE_H
#define CLIENT_SCOPE_H


#include <vector>

#include <LooperPrivate.h>
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
	// Could not be painted now.
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


/*!	While it lives the client's code runs for a window in an event of Qt's. */
class ClientScope {
public:
	// NULL for a view that is in no window.
	explicit ClientScope(BWindow* window);
	ClientScope(const ClientScope&) = delete;
	~ClientScope();

	ClientScope& operator=(const ClientScope&) = delete;

	// False while the window is inside of a handler, which waits then, and when it is on its way
	// out.
	bool MayEnter() const { return fLife == NULL || fScope.IsEntered(); }

private:
	WindowLife* fLife;
	LooperScope fScope;
};


#endif // CLIENT_SCOPE_H
