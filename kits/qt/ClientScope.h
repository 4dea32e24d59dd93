/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CLIENT_SCOPE_H
#define CLIENT_SCOPE_H


#include <LooperScope.h>


class BWindow;
class WindowLife;


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
