/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef APPLICATION_PRIVATE_H
#define APPLICATION_PRIVATE_H


#include <SupportDefs.h>


class BApplication;


/*!	For tests, which run on the application's thread without being served by BApplication::Run(). */
class ApplicationPrivate {
public:
	// The application takes messages from here on, as if it ran.
	static void Start(BApplication* application);
	// Serves windows, timers and the application for at most some microseconds, until something has
	// happened.
	static void ProcessEvents(bigtime_t timeout);
};


#endif // APPLICATION_PRIVATE_H
