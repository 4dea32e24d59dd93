/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <QuitSignals.h>

#include <cerrno>
#include <csignal>
#include <sys/eventfd.h>
#include <unistd.h>

#include <QSocketNotifier>

#include <Application.h>


// Carries no more than that there was a signal.
static int sSignalDescriptor = -1;


/*!	May interrupt any thread in anything: it does no more than wake the main one. */
static void
take_signal(int /*signal*/)
{
	const int error = errno;
	const uint64 one = 1;
	static_cast<void>(write(sSignalDescriptor, &one, sizeof(one)) < 0);
	errno = error;
}


static void
ask_to_quit()
{
	uint64 count;
	static_cast<void>(read(sSignalDescriptor, &count, sizeof(count)) < 0);
	be_app->PostMessage(B_QUIT_REQUESTED);
}


void
watch_quit_signals(QObject* application)
{
	sSignalDescriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
	if (sSignalDescriptor < 0)
		return;
	QSocketNotifier* notifier = new QSocketNotifier(sSignalDescriptor, QSocketNotifier::Read,
		application);
	QObject::connect(notifier, &QSocketNotifier::activated, application, ask_to_quit);

	struct sigaction action = {};
	action.sa_handler = take_signal;
	action.sa_flags = SA_RESTART;
	sigemptyset(&action.sa_mask);
	// Where a file may not grow, writing to it fails, as on a full disk.
	signal(SIGXFSZ, SIG_IGN);
	for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
		struct sigaction present = {};
		if (sigaction(signal, NULL, &present) == 0 && present.sa_handler != SIG_IGN)
			sigaction(signal, &action, NULL);
	}
}
