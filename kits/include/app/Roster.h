/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ROSTER_H
#define ROSTER_H


#include <Entry.h>
#include <OS.h>


/*!	What is known about a running application. */
// NOLINTNEXTLINE(readability-identifier-naming): Haiku's name
struct app_info {
	app_info();
	~app_info();

	thread_id thread;
	team_id team;
	port_id port;
	uint32 flags;
	entry_ref ref;
	char signature[B_MIME_TYPE_LENGTH];
};


#endif // ROSTER_H
