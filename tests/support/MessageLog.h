/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MESSAGE_LOG_H
#define MESSAGE_LOG_H


#include <condition_variable>
#include <deque>
#include <mutex>
#include <set>
#include <string>

#include <Looper.h>


/*!	A looper that writes down every message which is posted to it, as text: the code and each field
	with its type and value, in the order of the fields, as in "HLul socket=USHT 5". The test asks
	for them in their order. Which connection a message belongs to is written down apart.
	Create it with new and Run() it; end it with Lock() and Quit().
*/
class MessageLog : public BLooper {
public:
	MessageLog();

	void MessageReceived(BMessage* message) override;

	// The next message that was not asked for yet; waits for it up to ten seconds, then "nothing".
	std::string Next();
	// The messages that have come and were not asked for.
	size_t CountWaiting() const;
	// Everything that ever came.
	size_t CountAll() const;
	// The numbers of the connections that have posted; 0 among them if a message had none.
	std::set<uint32> Connections() const;

	static std::string Describe(const BMessage* message);

private:
	mutable std::mutex fMutex;
	std::condition_variable fAdded;
	std::deque<std::string> fWaiting;
	size_t fCountAll;
	std::set<uint32> fConnections;
};


#endif // MESSAGE_LOG_H
