/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ROUND_LOG_H
#define ROUND_LOG_H


#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>

#include <Looper.h>


/*!	The target of one client after another. Every notification belongs between the begin and the end
	of its client. Create it with new and Run() it; end it with Lock() and Quit().
*/
class RoundLog : public BLooper {
public:
	// What has been received of one client.
	struct Counts {
		size_t connected = 0;
		size_t failed = 0;
		size_t loggedIn = 0;
		size_t disconnected = 0;
		size_t others = 0;
	};

	RoundLog();

	void MessageReceived(BMessage* message) override;

	// Both wait until everything has been received that was posted before. From the begin on
	// everything carries that client's number.
	bool Begin(uint32 connection);
	bool End();

	// Attempts to connect whose end has been told, one way or the other, since the begin.
	size_t CountOutcomes() const;
	bool WaitForOutcomes(size_t count);

	Counts Received() const;
	std::string Complaint() const;

private:
	bool _Mark(BMessage* mark);
	void _Count(const BMessage* message);

	mutable std::mutex fLock;
	std::condition_variable fReceived;
	bool fIsOpen;
	uint32 fConnection;
	Counts fCounts;
	std::string fComplaint;
};


#endif // ROUND_LOG_H
