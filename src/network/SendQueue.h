/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SEND_QUEUE_H
#define SEND_QUEUE_H


#include <cstddef>
#include <memory>

#include <Locker.h>
#include <SupportDefs.h>

#include "Socket.h"


class TransactionBuilder;


/*!	The sending side of one connection, for any thread. Nobody who sends waits for the server: what
	it does not take at once is kept and sent by a thread "HL:Send", in the order of the calls. When
	more than \c kMaxWaiting bytes would have to be kept, a send fails or takes as long as the
	socket's time-out, the connection is shut down, so that half a transaction is never followed by
	another.
	The thread shares the queue with its owner, who may let go of it at any time.
*/
class SendQueue : public std::enable_shared_from_this<SendQueue> {
public:
	// In bytes.
	static constexpr size_t kMaxWaiting = 1024 * 1024;

	explicit SendQueue(const Socket& socket);
	SendQueue(const SendQueue&) = delete;
	~SendQueue();

	SendQueue& operator=(const SendQueue&) = delete;

	bool IsOf(const Socket& socket) const { return fSocket.IsSameAs(socket); }
	void Send(const TransactionBuilder& transaction);

private:
	static status_t _ThreadEntry(void* data);
	void _SendWaiting();
	size_t _CopyFirst(uint8* buffer, size_t size);
	void _RemoveFirst(size_t size);
	bool _Keep(const uint8* data, size_t size);
	bool _StartThread();

	const Socket fSocket;

	// Held while a transaction is handed over, never while the server is waited for. Guards the
	// following.
	BLocker fLock;
	// Room for kMaxWaiting bytes. It is there from when something has to wait until nothing does;
	// so long runs the thread.
	std::unique_ptr<uint8[]> fWaiting;
	size_t fWaitingSize;
};


#endif // SEND_QUEUE_H
