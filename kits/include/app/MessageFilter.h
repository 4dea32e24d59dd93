/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MESSAGE_FILTER_H
#define MESSAGE_FILTER_H


#include <SupportDefs.h>


class BHandler;
class BMessage;


enum filter_result { B_SKIP_MESSAGE, B_DISPATCH_MESSAGE };

/*!	Sees the messages of one code before the handler to which it was added does, and may keep them
	from it.
	Differs from Haiku: it is asked about one message only, B_KEY_DOWN for Return in the field of a
	text control, with "bytes" (string) and "modifiers" (int32); nothing else that the user does is
	a message here. Belongs to the thread of its handler, which owns it.
*/
class BMessageFilter {
public:
	explicit BMessageFilter(uint32 what);
	BMessageFilter(const BMessageFilter&) = delete;
	virtual ~BMessageFilter();

	BMessageFilter& operator=(const BMessageFilter&) = delete;

	virtual filter_result Filter(BMessage* message, BHandler** _target);

	uint32 Command() const { return fWhat; }

private:
	const uint32 fWhat;
};


#endif // MESSAGE_FILTER_H
