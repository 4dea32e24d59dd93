/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "HotlineClient.h"

#include <Autolock.h>
#include <Message.h>

#include "Reserve.h"
#include "ServerEvents.h"


// By this code alone a request counts as refused; only the login fails by any other as well.
static const uint32 kErrorRefused = 1;

// In bytes of transactions: how often it is looked whether there is memory for more.
static const size_t kLookInterval = 256 * 1024;


status_t
HotlineClient::_ReceiveThreadEntry(void* data)
{
	return static_cast<HotlineClient*>(data)->_ReceiveLoop();
}


/*!	Reads the server's transactions until the connection ends, by whomever, or there is no memory to
	spare for what it may still say. The socket is left to its owner.
*/
status_t
HotlineClient::_ReceiveLoop()
{
	const Socket socket = _CurrentSocket();
	size_t sinceLook = 0;
	bool isOpen = socket.IsSet() && fReceiver.Reset();
	while (fRunning && isOpen) {
		const TransactionReceiver::Result result = fReceiver.Receive(socket);
		isOpen = result != TransactionReceiver::kEnd;
		if (result == TransactionReceiver::kComplete) {
			sinceLook += fReceiver.Transaction().Size();
			_ProcessPayload();
			const bool looks = sinceLook >= kLookInterval;
			if (looks)
				sinceLook = 0;
			isOpen = fReceiver.Reset() && (!looks || HasSpareMemory());
			if (!isOpen)
				socket.ShutDown();
		}
	}

	fConnected = false;
	if (fRunning)
		_Notify(kHLDisconnected);
	fRunning = false;
	// The owner may delete the client from here on.
	fRecvThread = -1;
	return B_OK;
}


void
HotlineClient::_ProcessPayload()
{
	switch (fReceiver.Transaction().State()) {
		case TransactionParser::kStateChat:
			_HandleChat();
			break;
		case TransactionParser::kStateMessage:
			_HandleMessage();
			break;
		case TransactionParser::kStateUserChange:
			_HandleUserChange();
			break;
		case TransactionParser::kStateUserLeave:
			_HandleUserLeave();
			break;
		case TransactionParser::kStateTask:
			_HandleTask();
			break;
		case TransactionParser::kStateAgreement:
			_HandleAgreement();
			break;
		case TransactionParser::kStatePoliteQuit:
			_HandlePoliteQuit();
			break;
		case TransactionParser::kStateBroadcast:
			_HandleBroadcast();
			break;
		case TransactionParser::kStateServerBanner:
			_HandleServerBanner();
			break;
	}
}


// #pragma mark - Replies


/*!	Finds out which request the received reply answers, and what it says. */
void
HotlineClient::_HandleTask()
{
	const TransactionParser& reply = fReceiver.Transaction();
	const uint32 trans = reply.TransID();
	if (trans == fLoginTrans) {
		_HandleLoginReply();
		fRequests.TakeTask(trans);
		return;
	}

	const std::unique_ptr<TaskInfo> task = fRequests.TakeTask(trans);
	if (reply.ErrorCode() == kErrorRefused) {
		_HandleTaskError();
		return;
	}
	if (task == NULL)
		return;

	switch (task->type) {
		case TaskList::kTaskUserList:
			_HandleUserList();
			break;
		case TaskList::kTaskLogin:
			_HandleServerInfo();
			break;
		case TaskList::kTaskFileList:
			_HandleFileList(task->path.String());
			break;
		case TaskList::kTaskDownload:
			_HandleDownload(task.get());
			break;
		case TaskList::kTaskUpload:
			_HandleUpload(task.get());
			break;
		case TaskList::kTaskBanner:
			_HandleBannerDownload(task.get());
			break;
	}
}


/*!	The user list is asked for before the target hears of the login. */
void
HotlineClient::_HandleLoginReply()
{
	fLoginTrans = 0;
	if (fReceiver.Transaction().ErrorCode() != 0) {
		_HandleTaskError();
		return;
	}

	RequestUserList();
	_HandleServerInfo();
	_Notify(kHLLoggedIn);
}


void
HotlineClient::_HandleTaskError()
{
	BMessage message;
	ReadTaskError(_Params(), &message);
	_Notify(&message);
}


void
HotlineClient::_HandleServerInfo()
{
	BMessage message;
	{
		BAutolock locker(fStateLock);
		ReadServerInfo(_Params(), &fServerInfo, &message);
	}
	_Notify(&message);
}


void
HotlineClient::_HandleUserList()
{
	ParameterWalker users = _Params();
	bool hasMore = true;
	while (hasMore) {
		BMessage message;
		hasMore = ReadNextUser(&users, &message);
		if (hasMore)
			_Notify(&message);
	}
}


void
HotlineClient::_HandleFileList(const char* path)
{
	BMessage message;
	ReadFileList(_Params(), path, &message);
	_Notify(&message);
}


void
HotlineClient::_HandleDownload(const TaskInfo* task)
{
	BMessage message;
	if (ReadDownload(_Params(), task->path.String(), &message))
		_NotifyTransfer(&message);
}


void
HotlineClient::_HandleUpload(const TaskInfo* task)
{
	BMessage message;
	if (ReadUpload(_Params(), task->path.String(), task->extra.String(), &message))
		_NotifyTransfer(&message);
}


void
HotlineClient::_HandleBannerDownload(const TaskInfo*)
{
	BMessage message;
	if (ReadBannerDownload(_Params(), &message))
		_NotifyTransfer(&message);
}


// #pragma mark - The server's own transactions


void
HotlineClient::_HandleChat()
{
	BMessage message;
	if (ReadChat(_Params(), &message))
		_Notify(&message);
}


void
HotlineClient::_HandleMessage()
{
	BMessage message;
	if (ReadPrivateMessage(_Params(), &message))
		_Notify(&message);
}


void
HotlineClient::_HandleUserChange()
{
	BMessage message;
	if (ReadUserChange(_Params(), &message))
		_Notify(&message);
}


void
HotlineClient::_HandleUserLeave()
{
	BMessage message;
	if (ReadUserLeave(_Params(), &message))
		_Notify(&message);
}


/*!	Asks the user, or accepts on the user's behalf where the server has nothing to agree to. */
void
HotlineClient::_HandleAgreement()
{
	BMessage message;
	if (ReadAgreement(_Params(), &message)) {
		_Notify(&message);
		return;
	}

	BString nick;
	uint16 icon;
	{
		BAutolock locker(fStateLock);
		nick = fConnNick;
		icon = fConnIcon;
	}
	SendAgreed(nick.String(), icon);
}


/*!	What the server may say with it is not shown. */
void
HotlineClient::_HandlePoliteQuit()
{
	_Notify(kHLPoliteQuit);
}


void
HotlineClient::_HandleBroadcast()
{
	BMessage message;
	if (ReadBroadcast(_Params(), &message))
		_Notify(&message);
}


void
HotlineClient::_HandleServerBanner()
{
	_Notify(kHLServerBanner);
	RequestBanner();
}
