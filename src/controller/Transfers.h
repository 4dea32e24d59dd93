/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRANSFERS_H
#define TRANSFERS_H


#include <String.h>

#include "TransferPlaces.h"


class BLooper;
class BMessage;
class ChatOutput;


/*!	Downloads and uploads: starts what the server grants, each in a thread of its own, and tells in
	the chat how it goes. Beyond 64 at a time, or while another one writes the same file, a transfer
	fails at once. Lives in the main window's thread; borrows the chat, and the target that
	the threads post to.
*/
class Transfers {
public:
	Transfers(BLooper* target, ChatOutput* chat, const char* downloadsPath);

	void StartDownload(const BMessage* grant);
	void StartUpload(const BMessage* grant);
	void Report(const char* kind, const BMessage* outcome);

private:
	BLooper* fTarget;
	ChatOutput* fChat;
	BString fDownloadsPath;
	TransferPlaces fPlaces;
};


#endif // TRANSFERS_H
