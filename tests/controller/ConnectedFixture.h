/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CONNECTED_FIXTURE_H
#define CONNECTED_FIXTURE_H


#include "ControllerFixture.h"
#include "RawServer.h"


/*!	A controller that can be connected to a server of the test's own. */
class ConnectedFixture : public ControllerFixture {
protected:
	// Up to the last line in the chat; what the client asks for by itself has been read.
	void LogIn();

	RawServer fServer;
};


#endif // CONNECTED_FIXTURE_H
