/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_LISTENER_H
#define DEMO_LISTENER_H


#include "Channel.h"

#include <cstdint>
#include <functional>


namespace demo {


class TimerQueue;


/*!	Accepts connections on 127.0.0.1 and hands each one, non-blocking and owned by the receiver, to
	its handler. When the process is out of descriptors it pauses instead of spinning.
*/
class Listener : public Channel {
public:
	using Handler = std::function<void(int socket)>;

	Listener(int socket, TimerQueue& timers, Handler handler);
	~Listener() override;

	static int Open(uint16_t port, uint16_t* _port);

	short WantedEvents() const override;
	void HandleEvents(short events) override;

private:
	void _Pause();

	TimerQueue& fTimers;
	Handler fHandler;
	uint64_t fPauseTimer = 0;
};


} // namespace demo


#endif // DEMO_LISTENER_H
