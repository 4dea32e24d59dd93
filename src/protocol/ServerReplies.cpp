/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ServerReplies.h"

#include <cstring>

#include <Message.h>

#include "EntryReader.h"
#include "HotlineNotifications.h"
#include "HotlineProtocol.h"


// In bytes.
static const uint16 kMaxServerName = 255;
// The number of parameters stands in two bytes.
static const int32 kMaxListedFiles = 65535;


/*!	Reads where the server has put a transfer, and how many bytes it has.
	\return \c false when there is none.
*/
static bool
read_transfer(ParameterWalker params, uint32* _reference, uint32* _size)
{
	*_reference = 0;
	*_size = 0;
	HotlineParam param;
	while (params.Next(&param)) {
		if (param.type == kFieldTransferRef)
			ReadParamUInt32(param, _reference);
		else if (param.type == kFieldTransferSize)
			ReadParamUInt32(param, _size);
	}
	return *_reference != 0;
}


void
ReadTaskError(ParameterWalker params, BMessage* _message)
{
	BString error;
	HotlineParam param;
	while (params.Next(&param)) {
		if (param.type == kFieldError)
			ReadParamText(param, &error);
	}

	_message->what = kHLTaskError;
	_message->AddString("error", error);
}


/*!	\param _info What is not in the reply stays as it is there. */
void
ReadServerInfo(ParameterWalker params, ServerInfo* _info, BMessage* _message)
{
	HotlineParam param;
	while (params.Next(&param)) {
		if (param.type == kFieldVersion)
			ReadParamUInt16(param, &_info->version);
		else if (param.type == kFieldServerName)
			ReadParamText(param, kMaxServerName, &_info->name);
	}

	_message->what = kHLServerInfo;
	_message->AddString("serverName", _info->name);
	_message->AddUInt16("version", _info->version);
}


/*!	Goes on to the next user of a list that is one; each has a notification.
	\return \c false at the list's end.
*/
bool
ReadNextUser(ParameterWalker* params, BMessage* _message)
{
	HotlineParam param;
	UserEntry user;
	while (params->Next(&param)) {
		if (param.type == kFieldUserList && ReadUserEntry(param, &user)) {
			_message->what = kHLUserJoined;
			AddUser(user, _message);
			return true;
		}
	}
	return false;
}


/*!	Of what cannot be counted by the transaction's own count the rest is left out.
	\param path The folder's, as it was asked for.
*/
void
ReadFileList(ParameterWalker params, const char* path, BMessage* _message)
{
	_message->what = kHLFileListReceived;
	_message->AddString("path", path);
	HotlineParam param;
	FileEntry file;
	for (int32 count = 0; count < kMaxListedFiles && params.Next(&param); count++) {
		if (param.type != kFieldFileList || !ReadFileEntry(param, &file))
			continue;

		_message->AddString("name", file.name);
		_message->AddString("type", file.type);
		_message->AddString("creator", file.creator);
		_message->AddInt32("size", static_cast<int32>(file.size));
	}
}


/*!	\param path Of the file, as it was asked for; its name is what stands behind the last slash. */
bool
ReadDownload(ParameterWalker params, const char* path, BMessage* _message)
{
	uint32 reference;
	uint32 size;
	if (!read_transfer(params, &reference, &size))
		return false;

	const char* slash = strrchr(path, '/');
	_message->what = kHLDownloadReady;
	_message->AddUInt32("ref", reference);
	_message->AddUInt32("size", size);
	_message->AddString("filename", slash != NULL ? slash + 1 : path);
	return true;
}


/*!	\param fileName As it was offered, like \a localPath. */
bool
ReadUpload(ParameterWalker params, const char* fileName, const char* localPath, BMessage* _message)
{
	uint32 reference;
	uint32 size;
	if (!read_transfer(params, &reference, &size))
		return false;

	_message->what = kHLUploadReady;
	_message->AddUInt32("ref", reference);
	_message->AddString("filename", fileName);
	_message->AddString("localpath", localPath);
	return true;
}


/*!	\return \c false also for a banner without bytes. */
bool
ReadBannerDownload(ParameterWalker params, BMessage* _message)
{
	uint32 reference;
	uint32 size;
	if (!read_transfer(params, &reference, &size) || size == 0)
		return false;

	_message->what = kHLBannerReady;
	_message->AddUInt32("ref", reference);
	_message->AddUInt32("size", size);
	return true;
}
