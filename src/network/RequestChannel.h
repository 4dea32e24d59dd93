/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef REQUEST_CHANNEL_H
#define REQUEST_CHANNEL_H


#include <memory>

#include <Locker.h>

#include "TaskList.h"


class SendQueue;
class Socket;
class TransactionBuilder;


/*!	The way of a client's requests to the server: gives them their ids, in the order in which they
	go out, records what a reply will need, and hands them to the connection. For any thread; nobody
	waits for the server.
	Nobody else sends while somebody holds its lock, as the login must be the first request of its
	session. The lock is not to be held while waiting.
*/
class RequestChannel {
public:
	RequestChannel();
	RequestChannel(const RequestChannel&) = delete;
	~RequestChannel();

	RequestChannel& operator=(const RequestChannel&) = delete;

	BLocker& Locker() { return fLock; }

	void Open(const Socket& socket);
	void Close(const Socket& socket);
	void ForgetTasks() { fTasks.MakeEmpty(); }

	uint32 Send(uint32 type, TransactionBuilder& request, uint32 task = 0, const char* path = NULL,
		const char* extra = NULL);
	std::unique_ptr<TaskInfo> TakeTask(uint32 trans) { return fTasks.TakeTask(trans); }

private:
	std::shared_ptr<SendQueue> _Queue();
	uint32 _BuildHeader(uint8* buf, uint32 type, uint32 totalDataLen, uint16 paramCount);

	// Held while a transaction gets its id, is recorded and handed over, so that ids go out in
	// their order and no two transactions mix. Guards the id.
	BLocker fLock;
	uint32 fTransID;
	// Has a lock of its own.
	TaskList fTasks;

	// Guards the following, which is only there while a connection is open. Taken after fLock and
	// any lock of the client's, and never held while sending: closing does not wait for who sends.
	BLocker fQueueLock;
	std::shared_ptr<SendQueue> fQueue;
};


#endif // REQUEST_CHANNEL_H
