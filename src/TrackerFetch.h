/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRACKER_FETCH_H
#define TRACKER_FETCH_H


#include <atomic>
#include <cstddef>
#include <memory>
#include <sys/types.h>

#include <Messenger.h>
#include <SupportDefs.h>


class BLooper;
class BString;
class ConnectionAttempt;
class Socket;


ssize_t recv_full(const Socket& socket, void* buffer, size_t length);


/*!	Fetches the listing of one tracker, on the thread of whoever calls Run(), and posts it record by
	record: each as kMsgTrackerServer, then kMsgTrackerDone; or kMsgTrackerError alone if there is
	no listing.
	Once \a running is false, which any thread may make it, no further step is begun and what was
	read is not posted; Stop(), which belongs to any other thread, ends the call that waits at that
	time. Without it resolving takes as long as the resolver does, the rest about two minutes at the
	very most, whatever the tracker does.
*/
class TrackerFetch {
public:
	TrackerFetch(const char* address, const std::atomic<bool>& running, BLooper* target);
	TrackerFetch(const TrackerFetch&) = delete;
	~TrackerFetch();

	TrackerFetch& operator=(const TrackerFetch&) = delete;

	status_t Run();
	void Stop();

private:
	struct Listing {
		std::unique_ptr<uint8[]> bytes;
		size_t size;
		uint16 serverCount;
	};

	BString _Fetch(Listing* _listing);
	const char* _ReadListing(const Socket& socket, Listing* _listing);
	void _ReadRecords(const Socket& socket, Listing* _listing, size_t size);
	void _PostServers(const Listing& listing);
	void _Post(BMessage* message) const;

	const std::unique_ptr<ConnectionAttempt> fAttempt;
	const std::atomic<bool>& fRunning;
	BMessenger fMessenger;
};


#endif // TRACKER_FETCH_H
