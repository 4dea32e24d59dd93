/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef HANDLER_H
#define HANDLER_H


#include <AppDefs.h>
#include <Message.h>
#include <SupportDefs.h>


class BLooper;


/*!	Receives the messages that are addressed to it, once it was added to a looper, on that looper's
	thread.
	What it does not know it passes on to the looper. While it belongs to a looper it is touched
	only by who has that looper locked.
*/
class BHandler {
public:
	BHandler(const char* name = NULL);
	BHandler(const BHandler&) = delete;
	virtual ~BHandler();

	BHandler& operator=(const BHandler&) = delete;

	virtual void MessageReceived(BMessage* message);

	BLooper* Looper() const { return fLooper; }
	const char* Name() const { return fName; }

private:
	friend class BLooper;

	char* fName;
	BLooper* fLooper;
};


#endif // HANDLER_H
