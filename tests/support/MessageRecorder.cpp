/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "MessageRecorder.h"

#include <chrono>

#include <gtest/gtest.h>

#include <TypeConstants.h>

#include "WaitFor.h"


// Posted to oneself: when it is seen, so is everything that was posted before.
static const uint32 kMarker = 'Mrec';
static const char* const kConnection = "connection";


static std::string
code_text(uint32 code)
{
	std::string text;
	for (int shift = 24; shift >= 0; shift -= 8)
		text += static_cast<char>(code >> shift & 0xff);
	return text;
}


static std::string
value_text(const BMessage* message, const char* name, type_code type, int32 index)
{
	switch (type) {
		case B_STRING_TYPE:
			return message->GetString(name, index, "?");
		case B_BOOL_TYPE:
			return message->GetBool(name, index, false) ? "true" : "false";
		case B_INT16_TYPE:
			return std::to_string(message->GetInt16(name, index, 0));
		case B_UINT16_TYPE:
			return std::to_string(message->GetUInt16(name, index, 0));
		case B_INT32_TYPE:
			return std::to_string(message->GetInt32(name, index, 0));
		case B_UINT32_TYPE:
			return std::to_string(message->GetUInt32(name, index, 0));
		case B_INT64_TYPE:
			return std::to_string(message->GetInt64(name, index, 0));
		default:
			return "?";
	}
}


MessageRecorder::MessageRecorder()
	: BLooper("message recorder"),
	  fNext(0),
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
	fAdded.notify_all();
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
MessageRecorder::ExpectOnly(const BMessage& expected)
{
	const BMessage message = OnlyMessage();
	EXPECT_EQ(Describe(&expected), Describe(&message));
}


void
MessageRecorder::ExpectLast(const BMessage& expected)
{
	const std::vector<BMessage> messages = Messages();
	EXPECT_EQ(Describe(&expected), messages.empty() ? "nothing" : Describe(&messages.back()));
}


void
MessageRecorder::Clear()
{
	Messages();
	const std::lock_guard<std::mutex> lock(fRecordLock);
	fMessages.clear();
	fNext = 0;
}


/*!	Looks for a millisecond at a time, so that what comes soon is not waited for any longer. */
std::string
MessageRecorder::Next()
{
	const bool isThere = WaitFor([this] {
		std::unique_lock<std::mutex> lock(fRecordLock);
		return fAdded.wait_for(lock, std::chrono::milliseconds(1), [this] {
			return fNext < fMessages.size();
		});
	});
	const std::lock_guard<std::mutex> lock(fRecordLock);
	return isThere ? Describe(&fMessages[fNext++]) : "nothing";
}


size_t
MessageRecorder::CountWaiting() const
{
	const std::lock_guard<std::mutex> lock(fRecordLock);
	return fMessages.size() - fNext;
}


std::set<uint32>
MessageRecorder::Connections()
{
	std::set<uint32> connections;
	for (const BMessage& message : Messages())
		connections.insert(message.GetUInt32(kConnection, 0));
	return connections;
}


std::string
MessageRecorder::Describe(const BMessage* message)
{
	std::string text = code_text(message->what);
	char* name = nullptr;
	type_code type = 0;
	int32 count = 0;
	for (int32 i = 0; message->GetInfo(B_ANY_TYPE, i, &name, &type, &count) == B_OK; i++) {
		if (name == std::string(kConnection))
			continue;
		text += " " + std::string(name) + "=" + code_text(type);
		for (int32 j = 0; j < count; j++)
			text += " " + value_text(message, name, type, j);
	}
	return text;
}


void
LooperQuitter::operator()(BLooper* looper) const
{
	if (looper->Lock())
		looper->Quit();
}
