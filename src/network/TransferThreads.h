/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRANSFER_THREADS_H
#define TRANSFER_THREADS_H


#include <Messenger.h>
#include <String.h>
#include <SupportDefs.h>

#include "TransferPlaces.h"


/*!	What a transfer thread needs to know. The controller fills a record and starts a thread with it;
	from then on it belongs to the thread, which deletes it on every path. The address and the port
	are those of the control connection, the reference is the server's. The outcome is posted to the
	target, which may be gone by then; the place has been given back then.
*/
struct DownloadInfo {
	BString address;
	uint16 port;
	uint32 ref;
	// As the server announced it, in bytes; the stream itself says how long the file is.
	uint32 size;
	BString localPath;
	BString filename;
	BMessenger target;
	TransferPlaces::PlaceRef place = NULL;
};


struct UploadInfo {
	BString address;
	uint16 port;
	uint32 ref;
	BString localPath;
	BString filename;
	BMessenger target;
	TransferPlaces::PlaceRef place = NULL;
};


struct BannerDLInfo {
	BString address;
	uint16 port;
	uint32 ref;
	// The bytes that the server announced, all of which are kept in memory.
	uint32 size;
	BMessenger target;
	// The number of the connection that the banner belongs to.
	uint32 connection = 0;
};


// Thread entries: the argument is the record. They return 0 once the data was on its way, 1 when it
// never came to that.
status_t DownloadThread(void* info);
status_t UploadThread(void* info);
status_t BannerThread(void* info);


#endif // TRANSFER_THREADS_H
