/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "SendQueue.h"

#include <algorithm>
#include <cstring>
#include <new>

#include <Autolock.h>
#include <OS.h>

#include "TransactionBuilder.h"


// What the thread sends at a time, in bytes. As much less there is room meanwhile for what comes
// next.
static const size_t kSliceSize = 32 * 1024;


SendQueue::SendQueue(const Socket& socket)
	: fSocket(socket),
	  fLock("send queue"),
	  fWaitingSize(0)
{
}


SendQueue::~SendQueue() = default;


/*!	Sends a transaction, or keeps what the server does not take of it: all its pieces, with nothing
	of another thread's between them. Nothing happens once the connection has ended.
*/
void
SendQueue::Send(const TransactionBuilder& transaction)
{
	BAutolock locker(fLock);
	const bool isRunning = fWaiting != NULL;
	for (int32 i = 0; i < transaction.CountPieces(); i++) {
		const uint8* data = static_cast<const uint8*>(transaction.PieceAt(i).data);
		size_t size = transaction.PieceAt(i).size;
		if (fWaiting == NULL) {
			const ssize_t sent = fSocket.SendAtOnce(data, size);
			if (sent < 0)
				return;
			data += sent;
			size -= static_cast<size_t>(sent);
		}
		if (size > 0 && !_Keep(data, size)) {
			fSocket.ShutDown();
			return;
		}
	}
	if (fWaiting != NULL && !isRunning && !_StartThread())
		fSocket.ShutDown();
}


/*!	\return \c false when there is no room. The lock is held. */
bool
SendQueue::_Keep(const uint8* data, size_t size)
{
	if (fWaiting == NULL)
		fWaiting.reset(new (std::nothrow) uint8[kMaxWaiting]);
	if (fWaiting == NULL || size > kMaxWaiting - fWaitingSize)
		return false;
	memcpy(fWaiting.get() + fWaitingSize, data, size);
	fWaitingSize += size;
	return true;
}


/*!	The lock is held, so that the thread finds all of the transaction that it is started for. */
bool
SendQueue::_StartThread()
{
	auto shared = std::make_unique<std::shared_ptr<SendQueue>>(shared_from_this());
	const thread_id thread = spawn_thread(_ThreadEntry, "HL:Send", B_NORMAL_PRIORITY, shared.get());
	if (thread < 0)
		return false;

	// The share is the thread's from here on.
	static_cast<void>(shared.release());
	return resume_thread(thread) == B_OK;
}


status_t
SendQueue::_ThreadEntry(void* data)
{
	const std::unique_ptr<std::shared_ptr<SendQueue>> shared(
		static_cast<std::shared_ptr<SendQueue>*>(data));
	(*shared)->_SendWaiting();
	return B_OK;
}


/*!	Sends until nothing waits any more, or the connection has ended. */
void
SendQueue::_SendWaiting()
{
	uint8 slice[kSliceSize];
	size_t size = _CopyFirst(slice, sizeof(slice));
	while (size > 0 && fSocket.SendAll(slice, size)) {
		_RemoveFirst(size);
		size = _CopyFirst(slice, sizeof(slice));
	}
}


/*!	Copies the first of what waits, up to that many bytes. It counts as waiting until it has been
	sent.
	\return How many bytes it is. 0 when nothing waits: then the next that has to wait starts
	another thread.
*/
size_t
SendQueue::_CopyFirst(uint8* buffer, size_t size)
{
	BAutolock locker(fLock);
	const size_t count = std::min(size, fWaitingSize);
	if (count > 0)
		memcpy(buffer, fWaiting.get(), count);
	else
		fWaiting.reset();
	return count;
}


void
SendQueue::_RemoveFirst(size_t size)
{
	BAutolock locker(fLock);
	fWaitingSize -= size;
	memmove(fWaiting.get(), fWaiting.get() + size, fWaitingSize);
}
