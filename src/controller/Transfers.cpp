/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Transfers.h"

#include <cstring>

#include <Message.h>

#include "ChatColors.h"
#include "ChatOutput.h"
#include "GrantedTransfer.h"


/*!	\return Whether a file of that name, as the server gave it, lies in the folder that it is
	written to.
*/
static bool
stays_in_folder(const char* name)
{
	return strchr(name, '/') == NULL && strcmp(name, ".") != 0 && strcmp(name, "..") != 0;
}


/*!	\param downloadsPath The folder that files are written to; empty where there is none. */
Transfers::Transfers(BLooper* target, ChatOutput* chat, const char* downloadsPath)
	: fTarget(target),
	  fChat(chat),
	  fDownloadsPath(downloadsPath)
{
}


/*!	\param grant A kHLDownloadReady. */
void
Transfers::StartDownload(const BMessage* grant)
{
	const char* fileName = grant->GetString("filename", "");
	GrantedTransfer<DownloadInfo> transfer(grant, fTarget);
	if (transfer->ref == 0 || fileName[0] == '\0')
		return;

	transfer->size = grant->GetUInt32("size", 0);
	transfer->localPath << fDownloadsPath << "/" << fileName;
	transfer->filename = fileName;
	BString line;
	line.SetToFormat("*** Downloading %s (%" B_PRIu32 " bytes) ***\n", fileName, transfer->size);
	if (!fDownloadsPath.IsEmpty() && stays_in_folder(fileName))
		transfer->place = fPlaces.Take(transfer->localPath.String());
	if (transfer->place != NULL && transfer.Start(DownloadThread, "HL:Download", B_NORMAL_PRIORITY))
		fChat->Append(line.String(), kServerColor);
	else
		Report("Download", grant);
}


/*!	\param grant A kHLUploadReady. */
void
Transfers::StartUpload(const BMessage* grant)
{
	const char* localPath = grant->GetString("localpath", "");
	GrantedTransfer<UploadInfo> transfer(grant, fTarget);
	if (transfer->ref == 0 || localPath[0] == '\0')
		return;

	transfer->localPath = localPath;
	transfer->filename = grant->GetString("filename", "");
	BString line;
	line << "*** Uploading " << transfer->filename << " ***\n";
	transfer->place = fPlaces.Take("");
	if (transfer->place != NULL && transfer.Start(UploadThread, "HL:Upload", B_NORMAL_PRIORITY))
		fChat->Append(line.String(), kServerColor);
	else
		Report("Upload", grant);
}


/*!	\param kind "Download" or "Upload".
	\param outcome With the "filename"; without a "success" the transfer has failed.
*/
void
Transfers::Report(const char* kind, const BMessage* outcome)
{
	const bool success = outcome->GetBool("success");
	BString what(kind);
	what << (success ? " complete" : " failed");
	fChat->Announce(what.String(), outcome->GetString("filename", ""),
		success ? kSuccessColor : kFailureColor);
}
