/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MESSAGE_QUEUE_H
#define MESSAGE_QUEUE_H


#include <Message.h>


/*!	Messages in the order in which they were added. It owns them. Whoever holds a queue guards it
	with a lock.
*/
class MessageQueue {
public:
	MessageQueue();
	MessageQueue(const MessageQueue&) = delete;
	~MessageQueue();

	MessageQueue& operator=(const MessageQueue&) = delete;

	void Add(BMessage* message);
	// The caller owns what it gets; NULL when there is none.
	BMessage* Next();
	void MoveTo(MessageQueue& other);

	int32 CountMessages() const { return fCount; }
	// The memory that the messages take.
	size_t CountBytes() const { return fBytes; }

private:
	static size_t _BytesOf(const BMessage* message);

	BMessage* fFirst;
	BMessage* fLast;
	int32 fCount;
	size_t fBytes;
};


#endif // MESSAGE_QUEUE_H
