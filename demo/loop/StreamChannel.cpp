/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "StreamChannel.h"

#include <cerrno>

#include <poll.h>
#include <sys/socket.h>

#include "TimerQueue.h"


namespace demo {


static const size_t kReadSize = 64 * 1024;
static const std::chrono::milliseconds kLingerTime(3000);


StreamChannel::StreamChannel(int socket, TimerQueue& timers)
	: Channel(socket),
	  fTimers(timers)
{
}


StreamChannel::~StreamChannel()
{
	fTimers.Cancel(fLingerTimer);
}


short
StreamChannel::WantedEvents() const
{
	short events = 0;
	if (fFinishing || CountQueued() < kPauseReading)
		events |= POLLIN;
	if (CountQueued() > 0 || (HasMoreOutput() && !fFinishing))
		events |= POLLOUT;
	return events;
}


void
StreamChannel::HandleEvents(short events)
{
	if ((events & (POLLERR | POLLNVAL)) != 0) {
		Drop();
		return;
	}
	if ((events & POLLOUT) != 0) {
		if (!fFinishing)
			RefillOutput();
		_Flush();
	}
	if ((events & (POLLIN | POLLHUP)) != 0 && !IsDone())
		_Read();
	if (!IsDone() && !fFinishing)
		_ProcessInput();
}


/*!	Queues bytes for the peer. Ignored once the connection is being finished. */
void
StreamChannel::Write(const void* bytes, size_t size)
{
	if (IsDone() || fFinishing)
		return;
	if (CountQueued() + size > kMaxQueued) {
		Drop();
		return;
	}
	const auto* first = static_cast<const uint8_t*>(bytes);
	fOutput.insert(fOutput.end(), first, first + size);
}


/*!	Ends the connection after what is queued has been sent. The peer is given a few seconds to read
	and to close its side, because closing with unread bytes would destroy what it has not read yet.
*/
void
StreamChannel::Finish()
{
	if (IsDone() || fFinishing)
		return;
	fFinishing = true;
	fLingerTimer = fTimers.Add(kLingerTime, [this] {
		fLingerTimer = 0;
		Drop();
	});
	if (CountQueued() == 0)
		_Linger();
}


/*!	Ends the connection the rude way: the peer gets a reset, not an end of stream. */
void
StreamChannel::Reset()
{
	linger hard = {1, 0};
	setsockopt(Descriptor(), SOL_SOCKET, SO_LINGER, &hard, sizeof(hard));
	Drop();
}


void
StreamChannel::_Read()
{
	uint8_t buffer[kReadSize];
	ssize_t received = recv(Descriptor(), buffer, sizeof(buffer), 0);
	if (received < 0 && (errno == EAGAIN || errno == EINTR))
		return;
	if (received <= 0) {
		Drop();
		return;
	}
	if (!fFinishing)
		fInput.insert(fInput.end(), buffer, buffer + received);
}


void
StreamChannel::_ProcessInput()
{
	size_t done = 0;
	while (done < fInput.size() && CountQueued() < kPauseReading && !IsDone() && !fFinishing) {
		size_t consumed = HandleInput(fInput.data() + done, fInput.size() - done);
		if (consumed == 0)
			break;
		done += consumed;
	}
	fInput.erase(fInput.begin(), fInput.begin() + static_cast<ptrdiff_t>(done));
}


void
StreamChannel::_Flush()
{
	while (CountQueued() > 0) {
		ssize_t sent = send(Descriptor(), fOutput.data() + fOutputStart, CountQueued(),
			MSG_NOSIGNAL);
		if (sent < 0 && errno == EINTR)
			continue;
		if (sent < 0 && errno == EAGAIN)
			break;
		if (sent <= 0) {
			Drop();
			return;
		}
		fOutputStart += static_cast<size_t>(sent);
	}

	if (fOutputStart >= CountQueued()) {
		fOutput.erase(fOutput.begin(), fOutput.begin() + static_cast<ptrdiff_t>(fOutputStart));
		fOutputStart = 0;
		if (fOutput.empty() && fOutput.capacity() > kPauseReading)
			fOutput.shrink_to_fit();
	}
	if (fFinishing && CountQueued() == 0)
		_Linger();
}


void
StreamChannel::_Linger()
{
	shutdown(Descriptor(), SHUT_WR);
}


} // namespace demo
