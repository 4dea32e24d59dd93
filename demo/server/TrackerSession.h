/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_TRACKER_SESSION_H
#define DEMO_TRACKER_SESSION_H


#include "StreamChannel.h"

#include <cstddef>
#include <cstdint>
#include <string>


namespace demo {


/*!	One question to the tracker and its answer. Belongs to the event loop and to its thread.
*/
class TrackerSession : public StreamChannel {
public:
	// \param answer Sent to whoever asks properly; an empty one makes the tracker silent.
	TrackerSession(int socket, TimerQueue& timers, std::string answer);
	~TrackerSession() override;

protected:
	size_t HandleInput(const uint8_t* bytes, size_t size) override;

private:
	TimerQueue& fTimers;
	// Ends a connection on which nothing is asked, or answered.
	uint64_t fEndTimer;
	std::string fAnswer;
};


} // namespace demo


#endif // DEMO_TRACKER_SESSION_H
