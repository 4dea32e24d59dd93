/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// The other end of what is measured, in a process of its own, so that its CPU is nobody's. Both
// sides of a pair have the same one. It prints its port, and ends when its input does or when its
// client has gone.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <thread>
#include <unistd.h>

#include "ControlPartner.h"
#include "Stream.h"
#include "TransferPartner.h"


static void
end_with_input()
{
	std::thread([] {
		pollfd input = {STDIN_FILENO, 0, 0};
		poll(&input, 1, -1);
		_exit(0);
	}).detach();
}


int
main(int argumentCount, char** arguments)
{
	const char* role = argumentCount > 1 ? arguments[1] : "";
	const long count = argumentCount > 2 ? atol(arguments[2]) : 0;

	uint16_t port;
	const int listener = ListenOnLoopback(&port);
	printf("%d\n", static_cast<int>(port));
	fflush(stdout);
	end_with_input();

	if (strcmp(role, "chat") == 0) {
		ServeChat(listener, count);
	} else if (strcmp(role, "listing") == 0) {
		ServeListing(listener, count);
	} else if (strcmp(role, "files") == 0) {
		ServeFiles(listener, count);
	} else if (strcmp(role, "uploads") == 0) {
		ServeUploads(listener);
	} else {
		fprintf(stderr, "usage: bench_partner chat|listing|files|uploads [count or size]\n");
		return 2;
	}
	return 0;
}
