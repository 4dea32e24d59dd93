/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RoundLog.h"

#include <chrono>

#include <Message.h>

#include "HotlineNotifications.h"
#include "MessageRecorder.h"


static const std::chrono::seconds kDeadline(10);

// What the test itself posts to the target: a client lives from one to the other. The begin has its
// number like what the client posts.
static const uint32 kMsgBegin = 'Rbeg';
static const uint32 kMsgEnd = 'Rend';
static const char* const kConnection = "connection";


RoundLog::RoundLog()
	: BLooper("round log"),
	  fIsOpen(false),
	  fConnection(0)
{
}


void
RoundLog::MessageReceived(BMessage* message)
{
	std::lock_guard<std::mutex> lock(fLock);
	switch (message->what) {
		case kMsgBegin:
			fCounts = Counts();
			fConnection = message->GetUInt32(kConnection, 0);
			fIsOpen = true;
			break;
		case kMsgEnd:
			fIsOpen = false;
			break;
		default:
			_Count(message);
			break;
	}
	fReceived.notify_all();
}


bool
RoundLog::Begin(uint32 connection)
{
	BMessage mark(kMsgBegin);
	mark.AddUInt32(kConnection, connection);
	return _Mark(&mark);
}


bool
RoundLog::End()
{
	BMessage mark(kMsgEnd);
	return _Mark(&mark);
}


size_t
RoundLog::CountOutcomes() const
{
	std::lock_guard<std::mutex> lock(fLock);
	return fCounts.connected + fCounts.failed;
}


bool
RoundLog::WaitForOutcomes(size_t count)
{
	std::unique_lock<std::mutex> lock(fLock);
	return fReceived.wait_for(lock, kDeadline, [&] {
		return fCounts.connected + fCounts.failed >= count;
	});
}


RoundLog::Counts
RoundLog::Received() const
{
	std::lock_guard<std::mutex> lock(fLock);
	return fCounts;
}


std::string
RoundLog::Complaint() const
{
	std::lock_guard<std::mutex> lock(fLock);
	return fComplaint;
}


bool
RoundLog::_Mark(BMessage* mark)
{
	PostMessage(mark);
	std::unique_lock<std::mutex> lock(fLock);
	return fReceived.wait_for(lock, kDeadline, [&] {
		return fIsOpen == (mark->what == kMsgBegin);
	});
}


void
RoundLog::_Count(const BMessage* message)
{
	switch (message->what) {
		case kHLConnected:
			fCounts.connected++;
			break;
		case kHLConnectFailed:
			fCounts.failed++;
			break;
		case kHLLoggedIn:
			fCounts.loggedIn++;
			break;
		case kHLDisconnected:
			fCounts.disconnected++;
			break;
		default:
			fCounts.others++;
			break;
	}
	if (!fComplaint.empty())
		return;
	if (!fIsOpen)
		fComplaint = "from a client that was deleted: " + MessageRecorder::Describe(message);
	else if (message->GetUInt32(kConnection, 0) != fConnection)
		fComplaint = "not of the present client: " + MessageRecorder::Describe(message);
	else if (fCounts.loggedIn > fCounts.connected || fCounts.disconnected > fCounts.connected)
		fComplaint = "without a connection: " + MessageRecorder::Describe(message);
}
