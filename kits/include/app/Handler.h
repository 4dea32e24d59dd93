/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef HANDLER_H
#define HANDLER_H


#include <vector>

#include <AppDefs.h>
#include <Message.h>
#include <SupportDefs.h>


class BLooper;
class BMessageFilter;


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

	virtual void AddFilter(BMessageFilter* filter);

private:
	friend class BLooper;
	friend class LooperPrivate;

	char* fName;
	BLooper* fLooper;
	std::vector<BMessageFilter*> fFilters;
};


#endif // HANDLER_H
