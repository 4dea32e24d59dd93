/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RoundLog.h"

#include <chrono>

#include <Message.h>

#include "HotlineNotifications.h"
#include "MessageLog.h"


static const std::chrono::seconds kDeadline(10);

// What the test itself posts to the target: a client lives from one to the other.
static const uint32 kMsgBegin = 'Rbeg';
static const uint32 kMsgEnd = 'Rend';


RoundLog::RoundLog()
	: BLooper("round log"),
	  fIsOpen(false)
{
}


void
RoundLog::MessageReceived(BMessage* message)
{
	std::lock_guard<std::mutex> lock(fLock);
	switch (message->what) {
		case kMsgBegin:
			fCounts = Counts();
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
RoundLog::Begin()
{
	return _Mark(kMsgBegin);
}


bool
RoundLog::End()
{
	return _Mark(kMsgEnd);
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
RoundLog::_Mark(uint32 what)
{
	PostMessage(what);
	std::unique_lock<std::mutex> lock(fLock);
	return fReceived.wait_for(lock, kDeadline, [&] {
		return fIsOpen == (what == kMsgBegin);
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
		fComplaint = "from a client that was deleted: " + MessageLog::Describe(message);
	else if (fCounts.loggedIn > fCounts.connected || fCounts.disconnected > fCounts.connected)
		fComplaint = "without a connection: " + MessageLog::Describe(message);
}
