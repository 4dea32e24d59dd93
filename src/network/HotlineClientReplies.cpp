/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "HotlineClient.h"

#include <Autolock.h>
#include <Message.h>

#include "EntryReader.h"
#include "HotlineProtocol.h"


static const uint16 kMaxServerName = 255;

// By this code alone a request counts as refused; only the login fails by any other as well.
static const uint32 kErrorRefused = 1;


/*!	Finds out which request the received reply answers, and what it says. */
void
HotlineClient::_HandleTask()
{
	const uint32 trans = fParser.TransID();
	if (trans == fLoginTrans) {
		_HandleLoginReply();
		fTasks.RemoveTask(trans);
		return;
	}

	const std::unique_ptr<TaskInfo> task = fTasks.TakeTask(trans);
	if (fParser.ErrorCode() == kErrorRefused) {
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
	if (fParser.ErrorCode() != 0) {
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
	BString error;
	ParameterWalker walker = fParser.Params();
	HotlineParam param;
	while (walker.Next(&param)) {
		if (param.type == kFieldError)
			ReadParamText(param, &error);
	}

	BMessage message(kHLTaskError);
	message.AddString("error", error);
	_Notify(&message);
}


void
HotlineClient::_HandleServerInfo()
{
	uint16 version = fServerVersion;
	BString name;
	{
		BAutolock locker(fStateLock);
		name = fServerName;
	}

	ParameterWalker walker = fParser.Params();
	HotlineParam param;
	while (walker.Next(&param)) {
		if (param.type == kFieldVersion)
			ReadParamUInt16(param, &version);
		else if (param.type == kFieldServerName)
			ReadParamText(param, kMaxServerName, &name);
	}

	{
		BAutolock locker(fStateLock);
		fServerName = name;
		fServerVersion = version;
	}
	BMessage message(kHLServerInfo);
	message.AddString("serverName", name);
	message.AddUInt16("version", version);
	_Notify(&message);
}


void
HotlineClient::_HandleUserList()
{
	ParameterWalker walker = fParser.Params();
	HotlineParam param;
	UserEntry user;
	while (walker.Next(&param)) {
		if (param.type != kFieldUserList || !ReadUserEntry(param, &user))
			continue;

		BMessage message(kHLUserJoined);
		message.AddUInt16("socket", user.socket);
		message.AddUInt16("icon", user.icon);
		message.AddUInt16("color", user.color);
		message.AddString("nick", user.nick);
		_Notify(&message);
	}
}


void
HotlineClient::_HandleFileList(const char* path)
{
	BMessage message(kHLFileListReceived);
	message.AddString("path", path);

	ParameterWalker walker = fParser.Params();
	HotlineParam param;
	FileEntry file;
	while (walker.Next(&param)) {
		if (param.type != kFieldFileList || !ReadFileEntry(param, &file))
			continue;

		message.AddString("name", file.name);
		message.AddString("type", file.type);
		message.AddString("creator", file.creator);
		message.AddInt32("size", static_cast<int32>(file.size));
	}
	_Notify(&message);
}


void
HotlineClient::_HandleDownload(const TaskInfo* task)
{
	uint32 ref = 0;
	uint32 size = 0;
	_ReadTransfer(&ref, &size);
	if (ref == 0)
		return;

	BMessage message(kHLDownloadReady);
	message.AddUInt32("ref", ref);
	message.AddUInt32("size", size);
	// The file's name is what stands behind the last slash.
	const int32 nameOffset = task->path.FindLast('/') + 1;
	message.AddString("filename", task->path.String() + nameOffset);
	_AddServer(&message);
	_Notify(&message);
}


void
HotlineClient::_HandleUpload(const TaskInfo* task)
{
	uint32 ref = 0;
	uint32 size = 0;
	_ReadTransfer(&ref, &size);
	if (ref == 0)
		return;

	BMessage message(kHLUploadReady);
	message.AddUInt32("ref", ref);
	message.AddString("filename", task->path);
	message.AddString("localpath", task->extra);
	_AddServer(&message);
	_Notify(&message);
}


void
HotlineClient::_HandleBannerDownload(const TaskInfo*)
{
	uint32 ref = 0;
	uint32 size = 0;
	_ReadTransfer(&ref, &size);
	if (ref == 0 || size == 0)
		return;

	BMessage message(kHLBannerReady);
	message.AddUInt32("ref", ref);
	message.AddUInt32("size", size);
	_AddServer(&message);
	_Notify(&message);
}


/*!	Reads where the server has put a transfer, and how many bytes it has. What is absent is left as
	it is.
*/
void
HotlineClient::_ReadTransfer(uint32* _ref, uint32* _size) const
{
	ParameterWalker walker = fParser.Params();
	HotlineParam param;
	while (walker.Next(&param)) {
		if (param.type == kFieldTransferRef)
			ReadParamUInt32(param, _ref);
		else if (param.type == kFieldTransferSize)
			ReadParamUInt32(param, _size);
	}
}


/*!	Adds where a transfer is to be had: the control connection's address and port. */
void
HotlineClient::_AddServer(BMessage* message) const
{
	BAutolock locker(fStateLock);
	message->AddString("address", fAddress);
	message->AddUInt16("port", fPort);
}
