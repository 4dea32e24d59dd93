/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Listener.h"

#include <cerrno>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "TimerQueue.h"


namespace demo {


static const int kBacklog = 128;
static const std::chrono::milliseconds kPause(100);


Listener::Listener(int socket, TimerQueue& timers, Handler handler)
	: Channel(socket),
	  fTimers(timers),
	  fHandler(std::move(handler))
{
}


Listener::~Listener()
{
	fTimers.Cancel(fPauseTimer);
}


/*!	Opens a non-blocking listening socket on 127.0.0.1.
	\param port The port, 0 for any free one.
	\param _port Receives the port that it listens on.
	\return The socket, owned by the caller; -1 with \c errno set when the port is taken.
*/
int
Listener::Open(uint16_t port, uint16_t* _port)
{
	int listening = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
	if (listening < 0)
		return -1;

	int on = 1;
	setsockopt(listening, SOL_SOCKET, SO_REUSEADDR, &on, sizeof(on));

	sockaddr_in address = {};
	address.sin_family = AF_INET;
	address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
	address.sin_port = htons(port);
	socklen_t length = sizeof(address);
	auto* generic = reinterpret_cast<sockaddr*>(&address);
	if (bind(listening, generic, length) != 0 || listen(listening, kBacklog) != 0
		|| getsockname(listening, generic, &length) != 0) {
		int error = errno;
		close(listening);
		errno = error;
		return -1;
	}

	*_port = ntohs(address.sin_port);
	return listening;
}


short
Listener::WantedEvents() const
{
	return fPauseTimer != 0 ? 0 : POLLIN;
}


void
Listener::HandleEvents(short)
{
	while (true) {
		int accepted = accept4(Descriptor(), NULL, NULL, SOCK_NONBLOCK | SOCK_CLOEXEC);
		if (accepted >= 0) {
			int on = 1;
			setsockopt(accepted, IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
			fHandler(accepted);
			continue;
		}
		if (errno == EINTR || errno == ECONNABORTED)
			continue;
		if (errno != EAGAIN)
			_Pause();
		return;
	}
}


void
Listener::_Pause()
{
	fPauseTimer = fTimers.Add(kPause, [this] {
		fPauseTimer = 0;
	});
}


} // namespace demo
