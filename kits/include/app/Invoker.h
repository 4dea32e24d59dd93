/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef INVOKER_H
#define INVOKER_H


#include <Messenger.h>


class BHandler;
class BLooper;
class BMessage;


/*!	Something that sends a message when it is used. It owns the message and sends copies of it. */
class BInvoker {
public:
	BInvoker();
	BInvoker(BMessage* message, const BHandler* handler, const BLooper* looper = NULL);
	BInvoker(BMessage* message, BMessenger target) = delete;
	BInvoker(const BInvoker&) = delete;
	virtual ~BInvoker();

	BInvoker& operator=(const BInvoker&) = delete;

	virtual status_t SetMessage(BMessage* message);
	BMessage* Message() const { return fMessage; }
	uint32 Command() const;

	virtual status_t SetTarget(const BHandler* handler, const BLooper* looper = NULL);
	virtual status_t SetTarget(BMessenger target) = delete;
	BHandler* Target(BLooper** _looper = NULL) const;
	BMessenger Messenger() const { return fMessenger; }

	// Sends the given message, or its own one; an error when there is neither.
	virtual status_t Invoke(BMessage* message = NULL);

private:
	BMessage* fMessage;
	BMessenger fMessenger;
};


#endif // INVOKER_H
