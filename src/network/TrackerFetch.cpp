/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TrackerFetch.h"

#include <cstdio>
#include <new>

#include <Looper.h>
#include <Message.h>
#include <OS.h>
#include <String.h>

#include "AppMessages.h"
#include "ConnectionAttempt.h"
#include "Delivery.h"
#include "TrackerListing.h"


// The time-out of each call, and what all calls together get for the records, however slowly these
// drip.
static const int kTimeoutSeconds = 10;
static const bigtime_t kRecordsTimeout = 60 * 1000000LL;


/*!	Receives until the buffer is full or the tracker closes. If the bytes come one at a time, it is
	an error when they take longer than one of them may.
	\return The bytes received; -1 on an error or a time-out.
*/
ssize_t
recv_full(const Socket& socket, void* buffer, size_t length)
{
	return socket.ReceiveAll(buffer, length, kTimeoutSeconds * 1000000LL);
}


// #pragma mark -


static std::unique_ptr<ConnectionAttempt>
attempt_to(const char* address)
{
	BString host;
	const uint16 port = TrackerListing::SplitAddress(address, &host);
	return std::make_unique<ConnectionAttempt>(host.String(), port,
		ConnectionOptions{kTimeoutSeconds, kTimeoutSeconds, Socket::kIgnoreSignals, true});
}


/*!	\param address A host, optionally followed by a colon and a port number.
	\param running Borrowed.
	\param target Borrowed; may go away at any time.
*/
TrackerFetch::TrackerFetch(const char* address, const std::atomic<bool>& running, BLooper* target)
	: fAttempt(attempt_to(address)),
	  fRunning(running),
	  fMessenger(target)
{
}


TrackerFetch::~TrackerFetch() = default;


/*!	Has Run() end soon, whatever it waits for. Make \a running false before. */
void
TrackerFetch::Stop()
{
	fAttempt->Cancel();
}


/*!	\return 0, or 1 after an error. */
status_t
TrackerFetch::Run()
{
	Listing listing = {};
	const BString error = _Fetch(&listing);
	if (error.Length() > 0) {
		BMessage message(kMsgTrackerError);
		message.AddString("error", error);
		_Post(&message);
		return 1;
	}

	_PostServers(listing);
	BMessage done(kMsgTrackerDone);
	_Post(&done);
	return 0;
}


/*!	\param _listing Stays empty if there is no time for it any more, which is no error.
	\return What went wrong; empty if nothing did.
*/
BString
TrackerFetch::_Fetch(Listing* _listing)
{
	BString error;
	switch (fAttempt->Run()) {
		case ConnectionAttempt::kNotResolved:
		case ConnectionAttempt::kNoSocket:
		case ConnectionAttempt::kNotConnected:
			error = fAttempt->Error();
			break;
		case ConnectionAttempt::kConnected:
			if (fRunning)
				error = _ReadListing(fAttempt->ConnectedSocket(), _listing);
			break;
		case ConnectionAttempt::kCanceled:
			break;
	}
	fAttempt->Close();
	return fRunning ? error : BString();
}


/*!	Asks for the listing and reads it. One that is cut is none the worse for that.
	\return What went wrong; NULL if nothing did.
*/
const char*
TrackerFetch::_ReadListing(const Socket& socket, Listing* _listing)
{
	uint8 request[kTrackerRequestSize];
	TrackerListing::BuildRequest(request);
	if (socket.Send(request, sizeof(request)) != static_cast<ssize_t>(sizeof(request)))
		return "Failed to send handshake";

	uint8 header[kTrackerHeaderSize];
	if (recv_full(socket, header, sizeof(header)) != static_cast<ssize_t>(sizeof(header)))
		return "Failed to read tracker response";

	size_t size = 0;
	if (!TrackerListing::ReadHeader(header, &size, &_listing->serverCount))
		return "Invalid tracker response";

	_ReadRecords(socket, _listing, size > 0 ? size : kMaxUnsizedListing);
	return NULL;
}


/*!	Reads up to \a size bytes of records; fewer if the tracker closes, a call or the whole times
	out, or memory is short.
*/
void
TrackerFetch::_ReadRecords(const Socket& socket, Listing* _listing, size_t size)
{
	_listing->bytes.reset(new (std::nothrow) uint8[size]);
	if (_listing->bytes == NULL)
		return;

	const bigtime_t deadline = system_time() + kRecordsTimeout;
	while (_listing->size < size && fRunning && system_time() < deadline) {
		const ssize_t received = socket.Receive(_listing->bytes.get() + _listing->size,
			size - _listing->size);
		if (received < 1)
			return;
		_listing->size += static_cast<size_t>(received);
	}
}


void
TrackerFetch::_PostServers(const Listing& listing)
{
	TrackerListing records(listing.bytes.get(), listing.size);
	TrackerRecord record;
	uint32 posted = 0;
	while (fRunning && (listing.serverCount == 0 || posted < listing.serverCount)
		&& records.Next(&record)) {
		char address[32];
		snprintf(address, sizeof(address), "%u.%u.%u.%u", record.address[0], record.address[1],
			record.address[2], record.address[3]);

		BMessage message(kMsgTrackerServer);
		message.AddString("name", record.name);
		message.AddString("desc", record.description);
		message.AddString("ip", address);
		message.AddInt16("port", static_cast<int16>(record.port));
		message.AddInt16("users", static_cast<int16>(record.users));
		_Post(&message);
		posted++;
	}
}


/*!	Waits for room in the target's queue for as long as the fetch runs. */
void
TrackerFetch::_Post(BMessage* message) const
{
	bool isDelivered = Deliver(fMessenger, message);
	while (!isDelivered && fRunning)
		isDelivered = Deliver(fMessenger, message);
}
