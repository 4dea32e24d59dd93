/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TrackerSession.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "TimerQueue.h"


namespace demo {


// The magic word and version 1.
static const uint8_t kQuestion[] = {'H', 'T', 'R', 'K', 0x00, 0x01};
static const std::chrono::milliseconds kTimeToAsk(60000);


TrackerSession::TrackerSession(int socket, TimerQueue& timers, std::string answer)
	: StreamChannel(socket, timers),
	  fTimers(timers),
	  fEndTimer(timers.Add(kTimeToAsk,
		  [this] {
			  Drop();
		  })),
	  fAnswer(std::move(answer))
{
}


TrackerSession::~TrackerSession()
{
	fTimers.Cancel(fEndTimer);
}


size_t
TrackerSession::HandleInput(const uint8_t* bytes, size_t size)
{
	if (memcmp(bytes, kQuestion, std::min(size, sizeof(kQuestion))) != 0) {
		Finish();
		return size;
	}
	if (size < sizeof(kQuestion))
		return 0;
	if (!fAnswer.empty()) {
		Write(fAnswer.data(), fAnswer.size());
		Finish();
	}
	return size;
}


} // namespace demo
