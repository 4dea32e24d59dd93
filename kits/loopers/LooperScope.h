/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LOOPER_SCOPE_H
#define LOOPER_SCOPE_H


#include <LooperRecord.h>
#include <MainServer.h>


class BLooper;


/*!	Marks a looper of the main thread as being inside of a handler, while an event of the toolkit
	runs the client's code for it: it is not entered again when that code waits for a thread. The
	looper may quit meanwhile.
*/
class LooperScope {
public:
	explicit LooperScope(BLooper* looper);
	LooperScope(const LooperScope&) = delete;
	~LooperScope();

	LooperScope& operator=(const LooperScope&) = delete;

	// False when the looper is inside of a handler already, is dying or is gone.
	bool IsEntered() const { return fIsEntered; }

private:
	LooperRecordRef fRecord;
	bool fIsEntered;
	MainServer::State fBefore;
};


#endif // LOOPER_SCOPE_H
