/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "EventLoop.h"

#include <cstdint>

#include <sys/eventfd.h>
#include <unistd.h>

#include "Channel.h"


namespace demo {


EventLoop::EventLoop()
	: fWakeDescriptor(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{
}


EventLoop::~EventLoop()
{
	if (fWakeDescriptor >= 0)
		close(fWakeDescriptor);
}


/*!	May be called while the loop serves a channel; the new one is watched from the next turn on. */
void
EventLoop::Add(std::unique_ptr<Channel> channel)
{
	fChannels.push_back(std::move(channel));
}


/*!	Returns after \c Stop() and leaves the channels as they are. */
void
EventLoop::Run()
{
	while (!fStopping) {
		_Poll();
		_ServeReady();
		fTimers.RunDue();
		// Deleting one may make others done.
		while (_DeleteDone())
			;
	}
}


/*!	From any thread, any number of times, also before \c Run(). */
void
EventLoop::Stop()
{
	fStopping = true;
	uint64_t one = 1;
	// The only way to fail is a counter that is full, which wakes the loop as well.
	[[maybe_unused]] ssize_t written = write(fWakeDescriptor, &one, sizeof(one));
}


/*!	Closes every connection. For when \c Run() has returned. */
void
EventLoop::DeleteAll()
{
	while (!fChannels.empty()) {
		std::unique_ptr<Channel> last = std::move(fChannels.back());
		fChannels.pop_back();
	}
}


void
EventLoop::_Poll()
{
	fPolled.clear();
	for (const auto& channel : fChannels)
		fPolled.push_back({channel->Descriptor(), channel->WantedEvents(), 0});
	fPolled.push_back({fWakeDescriptor, POLLIN, 0});

	int ready = poll(fPolled.data(), fPolled.size(), fTimers.MillisecondsToNext());
	if (ready < 0) {
		// Interrupted: what the entries say is not valid.
		for (pollfd& entry : fPolled)
			entry.revents = 0;
	}
}


void
EventLoop::_ServeReady()
{
	// Channels added meanwhile stand behind the ones that were polled.
	size_t polled = fPolled.size() - 1;
	for (size_t i = 0; i < polled; i++) {
		Channel& channel = *fChannels[i];
		if (fPolled[i].revents != 0 && !channel.IsDone())
			channel.HandleEvents(fPolled[i].revents);
	}
}


bool
EventLoop::_DeleteDone()
{
	// A channel's destructor may look for others, never change the list of channels.
	std::vector<std::unique_ptr<Channel>> done;
	auto keep = fChannels.begin();
	for (auto& channel : fChannels) {
		if (channel->IsDone())
			done.push_back(std::move(channel));
		else
			*keep++ = std::move(channel);
	}
	fChannels.erase(keep, fChannels.end());
	return !done.empty();
}


} // namespace demo
