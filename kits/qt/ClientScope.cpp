/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ClientScope.h>

#include <Window.h>
#include <WindowPeer.h>


ClientScope::ClientScope(BWindow* window)
	: fLife(window != NULL ? WindowPeer::Of(window)->Life() : NULL),
	  fScope(window)
{
	if (fScope.IsEntered() && fLife != NULL)
		fLife->EnterHandler();
}


ClientScope::~ClientScope()
{
	if (fScope.IsEntered() && fLife != NULL)
		fLife->LeaveEvent();
}
