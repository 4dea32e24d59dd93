/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// One session of the program: shaken_session <seed> <port of a server> <port of a tracker>. Ends with
// status 0 when all that the user did came to what it shall; otherwise it says what did not.

#include <cstdio>
#include <cstdlib>

#include "Session.h"


int
main(int argumentCount, char** arguments)
{
	if (argumentCount != 4) {
		fprintf(stderr, "usage: shaken_session SEED PORT TRACKER_PORT\n");
		return 2;
	}

	setenv("PALIMBRA_SHAKE", arguments[1], 1);
	setenv("QT_QPA_PLATFORM", "offscreen", 1);
	Session session(static_cast<unsigned>(strtoul(arguments[1], NULL, 10)),
		static_cast<uint16>(strtoul(arguments[2], NULL, 10)),
		static_cast<uint16>(strtoul(arguments[3], NULL, 10)));
	session.Run();
	const int32 windows = session.CountWindows();
	if (windows > 0) {
		fprintf(stderr, "%d windows are left\n", static_cast<int>(windows));
		return 1;
	}
	return session.HasFinished() ? 0 : 1;
}
