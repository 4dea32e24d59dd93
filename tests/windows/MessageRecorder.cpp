/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "MessageRecorder.h"

#include <gtest/gtest.h>

#include "WaitFor.h"


// Posted to oneself: when it is seen, so is everything that was posted before.
static const uint32 kMarker = 'mark';


MessageRecorder::MessageRecorder()
	: BLooper("message recorder"),
	  fMarkersSeen(0),
	  fMarkersPosted(0)
{
	Run();
}


void
MessageRecorder::MessageReceived(BMessage* message)
{
	const std::lock_guard<std::mutex> lock(fRecordLock);
	if (message->what == kMarker)
		fMarkersSeen++;
	else
		fMessages.push_back(*message);
}


std::vector<BMessage>
MessageRecorder::Messages()
{
	PostMessage(kMarker);
	fMarkersPosted++;
	EXPECT_TRUE(WaitFor([this] {
		const std::lock_guard<std::mutex> lock(fRecordLock);
		return fMarkersSeen == fMarkersPosted;
	}));
	const std::lock_guard<std::mutex> lock(fRecordLock);
	return fMessages;
}


int32
MessageRecorder::CountMessages()
{
	return static_cast<int32>(Messages().size());
}


BMessage
MessageRecorder::OnlyMessage()
{
	const std::vector<BMessage> messages = Messages();
	EXPECT_EQ(1u, messages.size());
	return messages.size() == 1 ? messages[0] : BMessage();
}


void
LooperQuitter::operator()(BLooper* looper) const
{
	if (looper->Lock())
		looper->Quit();
}
