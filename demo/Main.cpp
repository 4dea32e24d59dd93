/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

#include "DemoServer.h"
#include "ServerOptions.h"


int
main(int argumentCount, char** arguments)
{
	demo::CommandLine commandLine;
	std::string error;
	if (!commandLine.Parse(argumentCount, arguments, &error)) {
		fprintf(stderr, "%s\n\n%s", error.c_str(), demo::CommandLine::Usage().c_str());
		return 2;
	}
	if (commandLine.help) {
		fputs(demo::CommandLine::Usage().c_str(), stdout);
		return 0;
	}

	// Blocked before there is a second thread, so that the signals wait for this one.
	sigset_t signals;
	sigemptyset(&signals);
	sigaddset(&signals, SIGINT);
	sigaddset(&signals, SIGTERM);
	pthread_sigmask(SIG_BLOCK, &signals, NULL);

	demo::DemoServer server(commandLine.server);
	if (!server.Start(commandLine.port)) {
		fprintf(stderr, "cannot listen on 127.0.0.1, ports %u, %u and %u: %s\n", commandLine.port,
			commandLine.port + 1, commandLine.server.trackerPort, strerror(errno));
		return 1;
	}
	printf("listening on 127.0.0.1:%u\n", server.Port());
	printf("tracker on 127.0.0.1:%u\n", server.TrackerPort());
	fflush(stdout);

	int received = 0;
	sigwait(&signals, &received);
	server.Stop();
	return 0;
}
