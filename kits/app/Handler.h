/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef HANDLER_H
#define HANDLER_H


#include <atomic>

#include <AppDefs.h>
#include <Message.h>
#include <SupportDefs.h>


class BLooper;


/*!	Receives the messages that are addressed to it, once it was added to a looper, on that looper's thread.
	What it does not know it passes on to its next handler. While it belongs to a looper it is touched only by who has
	that looper locked.
*/
class BHandler {
public:
	BHandler(const char* name = NULL);
	BHandler(const BHandler&) = delete;
	virtual ~BHandler();

	BHandler& operator=(const BHandler&) = delete;

	virtual void MessageReceived(BMessage* message);

	BLooper* Looper() const { return fLooper.load(std::memory_order_relaxed); }
	void SetName(const char* name);
	const char* Name() const { return fName; }

	virtual void SetNextHandler(BHandler* handler);
	BHandler* NextHandler() const { return fNextHandler; }

	bool LockLooper();
	void UnlockLooper();

private:
	friend class BLooper;

	char* fName;
	// Written by who has the looper locked, read by LockLooper() on any thread.
	std::atomic<BLooper*> fLooper;
	BHandler* fNextHandler;
};


#endif // HANDLER_H
