/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MESSAGE_RECORDER_H
#define MESSAGE_RECORDER_H


#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include <Looper.h>
#include <Message.h>


/*!	A looper that stands in for the controller and keeps what is posted to it, in order.
	Runs a thread of its own; every question may be asked from the test's thread. Ends by Quit(),
	see RecorderOwner.
*/
class MessageRecorder : public BLooper {
public:
	MessageRecorder();

	void MessageReceived(BMessage* message) override;

	// Both wait until everything has been recorded that was posted before the call.
	std::vector<BMessage> Messages();
	int32 CountMessages();

	// The only message so far; a test failure and an empty message if there are none or more.
	BMessage OnlyMessage();
	// The only message, or the last one, has the code and the fields of this one.
	void ExpectOnly(const BMessage& expected);
	void ExpectLast(const BMessage& expected);
	// Forgets them all.
	void Clear();

	// The next message that was not asked for yet, described; waits for it up to ten seconds, then
	// "nothing".
	std::string Next();
	// The messages that have come and were not asked for.
	size_t CountWaiting() const;
	// The numbers of the connections that have posted; 0 among them if a message had none.
	std::set<uint32> Connections();

	// The code and each field with its type and value, in the order of the fields, as in
	// "HLul socket=USHT 5", but for the connection.
	static std::string Describe(const BMessage* message);

private:
	// Under fRecordLock.
	mutable std::mutex fRecordLock;
	std::condition_variable fAdded;
	std::vector<BMessage> fMessages;
	size_t fNext;
	int32 fMarkersSeen;

	int32 fMarkersPosted;
};


struct LooperQuitter {
	void operator()(BLooper* looper) const;
};


using RecorderOwner = std::unique_ptr<MessageRecorder, LooperQuitter>;


#endif // MESSAGE_RECORDER_H
