/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RequestChannel.h"

#include <Autolock.h>

#include "HotlineProtocol.h"
#include "SendQueue.h"
#include "TransactionBuilder.h"


RequestChannel::RequestChannel()
	: fLock("hotline requests"),
	  fTransID(1),
	  fQueueLock("hotline send queue")
{
}


RequestChannel::~RequestChannel() = default;


/*!	Leads to that connection from here on. Ids begin again at 1, and what waited under earlier ones
	is forgotten.
*/
void
RequestChannel::Open(const Socket& socket)
{
	BAutolock locker(fLock);
	fTransID = 1;
	fTasks.MakeEmpty();
	BAutolock queueLocker(fQueueLock);
	fQueue = std::make_shared<SendQueue>(socket);
}


/*!	If it is that connection that is open, sends no more on it and shuts it down, as what its queue
	still sends would keep it open.
*/
void
RequestChannel::Close(const Socket& socket)
{
	BAutolock locker(fQueueLock);
	if (fQueue == NULL || !fQueue->IsOf(socket))
		return;
	socket.ShutDown();
	fQueue.reset();
}


/*!	Gives a request its id, records what a reply will need, and sends it; nothing is sent while no
	connection is open.
	\param type One of HotlineClientCmd.
	\param task The kind of TaskList whose reply is waited for, with its \a path and \a extra; 0 for
	none.
	\return The id.
*/
uint32
RequestChannel::Send(uint32 type, TransactionBuilder& request, uint32 task, const char* path,
	const char* extra)
{
	BAutolock locker(fLock);
	const uint32 trans = _BuildHeader(request.Header(), type, request.DataLength(),
		request.CountParams());
	if (task != 0)
		fTasks.AddTask(trans, task, path, extra);
	const std::shared_ptr<SendQueue> queue = _Queue();
	if (queue != NULL)
		queue->Send(request);
	return trans;
}


std::shared_ptr<SendQueue>
RequestChannel::_Queue()
{
	BAutolock locker(fQueueLock);
	return fQueue;
}


/*!	Writes the header of a request and gives it the next id.
	\param buf Receives \c kHeaderSize bytes.
	\param totalDataLen 2, and for each parameter 4 and the length of its value.
	\return The id.
*/
uint32
RequestChannel::_BuildHeader(uint8* buf, uint32 type, uint32 totalDataLen, uint16 paramCount)
{
	HotlineHeader header;
	header.type = type;
	header.trans = fTransID++;
	header.flags = 0;
	header.totalSize = totalDataLen;
	header.dataSize = totalDataLen;
	header.paramCount = paramCount;
	HotlineWriteHeader(buf, header);
	return header.trans;
}
