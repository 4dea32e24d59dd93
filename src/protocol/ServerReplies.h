/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SERVER_REPLIES_H
#define SERVER_REPLIES_H


#include <String.h>

#include "ParameterWalker.h"


class BMessage;


/*!	What a server says of itself when it has let the user in. */
struct ServerInfo {
	BString name;
	uint16 version = 0;
};


// What a server replies to a request, read from the parameters of the reply into the notification
// that tells of it (HotlineNotifications.h). Where they return false there is nothing to tell.
void ReadTaskError(ParameterWalker params, BMessage* _message);
void ReadServerInfo(ParameterWalker params, ServerInfo* _info, BMessage* _message);
bool ReadNextUser(ParameterWalker* params, BMessage* _message);
void ReadFileList(ParameterWalker params, const char* path, BMessage* _message);

// Where a transfer is to be had is added by who knows it.
bool ReadDownload(ParameterWalker params, const char* path, BMessage* _message);
bool ReadUpload(ParameterWalker params, const char* fileName, const char* localPath,
	BMessage* _message);
bool ReadBannerDownload(ParameterWalker params, BMessage* _message);


#endif // SERVER_REPLIES_H
