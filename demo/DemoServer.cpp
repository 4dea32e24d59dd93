/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "DemoServer.h"

#include <thread>

#include "EventLoop.h"
#include "Listener.h"
#include "Server.h"


namespace demo {


struct DemoServer::Running {
	explicit Running(const ServerOptions& options)
		: server(loop, options)
	{
	}

	uint16_t port = 0;
	EventLoop loop;
	Server server;
	std::thread thread;
};


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
	\return \c false with \c errno set when the port is taken, also when the server runs already.
*/
bool
DemoServer::Start(uint16_t port)
{
	if (fRunning != nullptr)
		return false;

	auto running = std::make_unique<Running>(fOptions);
	if (!running->loop.InitCheck())
		return false;
	int listening = Listener::Open(port, &running->port);
	if (listening < 0)
		return false;

	Running* context = running.get();
	context->loop.Add(
		std::make_unique<Listener>(listening, context->loop.Timers(), [context](int socket) {
			context->server.HandleConnection(socket);
		}));
	context->thread = std::thread([context] {
		context->loop.Run();
	});
	fRunning = std::move(running);
	return true;
}


//!	Closes every connection and waits for the thread. Does nothing when the server does not run.
void
DemoServer::Stop()
{
	if (fRunning == nullptr)
		return;

	fRunning->loop.Stop();
	fRunning->thread.join();
	fRunning->loop.DeleteAll();
	fRunning.reset();
}


uint16_t
DemoServer::Port() const
{
	return fRunning != nullptr ? fRunning->port : 0;
}


} // namespace demo
