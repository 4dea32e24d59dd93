/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_DEMO_SERVER_H
#define DEMO_DEMO_SERVER_H


#include "ServerOptions.h"

#include <cstdint>
#include <memory>


namespace demo {


/*!	The whole demo server on a thread of its own, for the program and for tests. Listens on
	127.0.0.1 only. Belongs to one thread, which starts and stops it.
*/
class DemoServer {
public:
	explicit DemoServer(const ServerOptions& options = ServerOptions());
	~DemoServer();

	[[nodiscard]] bool Start(uint16_t port = 0);
	void Stop();

	// The control connection's port while the server runs, else 0. Files travel on the next one.
	uint16_t Port() const;
	// The tracker's port while the server runs, else 0.
	uint16_t TrackerPort() const;

private:
	// What exists only while the server runs.
	struct Running;

	const ServerOptions fOptions;
	std::unique_ptr<Running> fRunning;
};


} // namespace demo


#endif // DEMO_DEMO_SERVER_H
