/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MESSENGER_H
#define MESSENGER_H


#include <Message.h>


class BHandler;
class BLooper;


/*!	Names a looper and one of its handlers, and stays harmless when they are gone. May be copied and
	used on any thread.
*/
class BMessenger {
public:
	BMessenger();
	BMessenger(const BHandler* handler, const BLooper* looper = NULL, status_t* _result = NULL);
	BMessenger(const char* signature, team_id team = -1, status_t* _result = NULL) = delete;
	BMessenger(const BMessenger& other) = default;
	~BMessenger() = default;

	BMessenger& operator=(const BMessenger& other) = default;

	bool IsValid() const;
	BHandler* Target(BLooper** _looper) const;

	status_t SendMessage(uint32 command, BHandler* replyTo = NULL) const;
	status_t SendMessage(BMessage* message, BHandler* replyTo = NULL,
		bigtime_t timeout = B_INFINITE_TIMEOUT) const;
	status_t SendMessage(BMessage* message, BMessenger replyTo,
		bigtime_t timeout = B_INFINITE_TIMEOUT) const = delete;
	status_t SendMessage(uint32 command, BMessage* reply) const = delete;
	status_t SendMessage(BMessage* message, BMessage* reply,
		bigtime_t deliveryTimeout = B_INFINITE_TIMEOUT,
		bigtime_t replyTimeout = B_INFINITE_TIMEOUT) const = delete;

private:
	friend class TickTable;

	int32 fLooperToken;
	int32 fHandlerToken;
};


#endif // MESSENGER_H
