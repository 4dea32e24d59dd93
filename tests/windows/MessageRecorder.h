/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MESSAGE_RECORDER_H
#define MESSAGE_RECORDER_H


#include <memory>
#include <mutex>
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

private:
	// Under fRecordLock.
	std::mutex fRecordLock;
	std::vector<BMessage> fMessages;
	int32 fMarkersSeen;

	int32 fMarkersPosted;
};


struct LooperQuitter {
	void operator()(BLooper* looper) const;
};


using RecorderOwner = std::unique_ptr<MessageRecorder, LooperQuitter>;


#endif // MESSAGE_RECORDER_H
