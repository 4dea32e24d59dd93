/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <MessageQueue.h>


MessageQueue::MessageQueue()
	: fFirst(NULL),
	  fLast(NULL),
	  fCount(0),
	  fBytes(0)
{
}


MessageQueue::~MessageQueue()
{
	for (BMessage* message = Next(); message != NULL; message = Next())
		delete message;
}


/*!	Puts the message, which now belongs to the queue, behind the others. */
void
MessageQueue::Add(BMessage* message)
{
	message->fNext = NULL;
	if (fLast != NULL)
		fLast->fNext = message;
	else
		fFirst = message;
	fLast = message;

	fCount++;
	fBytes += _BytesOf(message);
}


BMessage*
MessageQueue::Next()
{
	BMessage* message = fFirst;
	if (message == NULL)
		return NULL;

	fFirst = message->fNext;
	if (fFirst == NULL)
		fLast = NULL;
	message->fNext = NULL;

	fCount--;
	fBytes -= _BytesOf(message);
	return message;
}


/*!	Hands everything over to another queue, which is empty. */
void
MessageQueue::MoveTo(MessageQueue& other)
{
	other.fFirst = fFirst;
	other.fLast = fLast;
	other.fCount = fCount;
	other.fBytes = fBytes;

	fFirst = NULL;
	fLast = NULL;
	fCount = 0;
	fBytes = 0;
}


size_t
MessageQueue::_BytesOf(const BMessage* message)
{
	return sizeof(BMessage) + message->fFields.MemoryOutside();
}
