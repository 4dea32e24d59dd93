/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "MessageLog.h"

#include <chrono>

#include <Message.h>
#include <TypeConstants.h>

#include "ConnectionMark.h"


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
		case B_UINT16_TYPE:
			return std::to_string(message->GetUInt16(name, index, 0));
		case B_UINT32_TYPE:
			return std::to_string(message->GetUInt32(name, index, 0));
		case B_INT32_TYPE:
			return std::to_string(message->GetInt32(name, index, 0));
		default:
			return "?";
	}
}


MessageLog::MessageLog()
	: BLooper("message log"),
	  fCountAll(0)
{
}


void
MessageLog::MessageReceived(BMessage* message)
{
	const std::string text = Describe(message);
	std::lock_guard<std::mutex> lock(fMutex);
	fWaiting.push_back(text);
	fCountAll++;
	fConnections.insert(ConnectionOf(message));
	fAdded.notify_all();
}


std::string
MessageLog::Next()
{
	std::unique_lock<std::mutex> lock(fMutex);
	if (!fAdded.wait_for(lock, std::chrono::seconds(10), [&] {
			return !fWaiting.empty();
		}))
		return "nothing";
	std::string text = fWaiting.front();
	fWaiting.pop_front();
	return text;
}


size_t
MessageLog::CountWaiting() const
{
	std::lock_guard<std::mutex> lock(fMutex);
	return fWaiting.size();
}


size_t
MessageLog::CountAll() const
{
	std::lock_guard<std::mutex> lock(fMutex);
	return fCountAll;
}


std::set<uint32>
MessageLog::Connections() const
{
	std::lock_guard<std::mutex> lock(fMutex);
	return fConnections;
}


std::string
MessageLog::Describe(const BMessage* message)
{
	std::string text = code_text(message->what);
	char* name = nullptr;
	type_code type = 0;
	int32 count = 0;
	for (int32 i = 0; message->GetInfo(B_ANY_TYPE, i, &name, &type, &count) == B_OK; i++) {
		if (name == std::string("connection"))
			continue;
		text += " " + std::string(name) + "=" + code_text(type);
		for (int32 j = 0; j < count; j++)
			text += " " + value_text(message, name, type, j);
	}
	return text;
}
