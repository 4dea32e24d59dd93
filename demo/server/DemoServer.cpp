/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "DemoServer.h"

#include <cerrno>
#include <string>
#include <thread>
#include <utility>

#include <unistd.h>

#include "EventLoop.h"
#include "Listener.h"
#include "Server.h"
#include "TrackerAnswer.h"
#include "TrackerSession.h"
#include "TransferSession.h"


namespace demo {


// More than that many connections of all kinds are turned away.
static const size_t kMaxChannels = 600;
// How often a pair of ports is tried when any will do.
static const int kMaxAttempts = 100;


struct DemoServer::Running {
	explicit Running(const ServerOptions& theOptions)
		: options(theOptions),
		  server(loop, options)
	{
	}

	bool Listen(uint16_t wantedPort);
	bool OpenPair(uint16_t wantedPort, int* _control, int* _transfer);
	void AddListener(int socket, Listener::Handler handler);
	void HandleTransfer(int socket);
	void HandleTracker(int socket);

	const ServerOptions& options;
	uint16_t port = 0;
	uint16_t trackerPort = 0;
	EventLoop loop;
	Server server;
	std::thread thread;
};


bool
DemoServer::Running::Listen(uint16_t wantedPort)
{
	int control = -1;
	int transfer = -1;
	if (!OpenPair(wantedPort, &control, &transfer))
		return false;
	AddListener(control, [this](int socket) {
		server.HandleConnection(socket);
	});
	AddListener(transfer, [this](int socket) {
		HandleTransfer(socket);
	});

	int tracker = Listener::Open(options.trackerPort, &trackerPort);
	if (tracker < 0)
		return false;
	AddListener(tracker, [this](int socket) {
		HandleTracker(socket);
	});
	return true;
}


/*!	Opens a port and the one behind it. */
bool
DemoServer::Running::OpenPair(uint16_t wantedPort, int* _control, int* _transfer)
{
	for (int i = 0; i < kMaxAttempts; i++) {
		*_control = Listener::Open(wantedPort, &port);
		if (*_control < 0)
			return false;
		uint16_t next = 0;
		if (port < 65535)
			*_transfer = Listener::Open(static_cast<uint16_t>(port + 1), &next);
		if (*_transfer >= 0)
			return true;
		int error = errno;
		close(*_control);
		errno = error;
		if (wantedPort != 0)
			return false;
	}
	return false;
}


void
DemoServer::Running::AddListener(int socket, Listener::Handler handler)
{
	loop.Add(std::make_unique<Listener>(socket, loop.Timers(), std::move(handler)));
}


void
DemoServer::Running::HandleTransfer(int socket)
{
	if (loop.CountChannels() >= kMaxChannels)
		close(socket);
	else
		loop.Add(std::make_unique<TransferSession>(socket, server));
}


void
DemoServer::Running::HandleTracker(int socket)
{
	if (loop.CountChannels() >= kMaxChannels) {
		close(socket);
		return;
	}
	std::string answer = tracker_answer(options.tracker, port, server.CountUsers());
	loop.Add(std::make_unique<TrackerSession>(socket, loop.Timers(), answer));
}


// #pragma mark -


DemoServer::DemoServer(const ServerOptions& options)
	: fOptions(options)
{
}


DemoServer::~DemoServer()
{
	Stop();
}


/*!	Listens when it returns: whoever connects from then on is served.
	\param port The control connection's port, 0 for any free one.
	\return \c false with \c errno set when one of the ports is taken, also when the server runs
	already.
*/
bool
DemoServer::Start(uint16_t port)
{
	if (fRunning != NULL)
		return false;

	auto running = std::make_unique<Running>(fOptions);
	if (!running->loop.InitCheck())
		return false;
	if (!running->Listen(port))
		return false;

	Running* context = running.get();
	context->thread = std::thread([context] {
		context->loop.Run();
	});
	fRunning = std::move(running);
	return true;
}


/*!	Closes every connection and waits for the thread. Does nothing when the server does not run. */
void
DemoServer::Stop()
{
	if (fRunning == NULL)
		return;

	fRunning->loop.Stop();
	fRunning->thread.join();
	fRunning->loop.DeleteAll();
	fRunning.reset();
}


uint16_t
DemoServer::Port() const
{
	return fRunning != NULL ? fRunning->port : 0;
}


uint16_t
DemoServer::TrackerPort() const
{
	return fRunning != NULL ? fRunning->trackerPort : 0;
}


} // namespace demo
