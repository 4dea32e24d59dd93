/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cstring>
#include <memory>

#include <Bitmap.h>
#include <DataIO.h>
#include <Message.h>
#include <OS.h>
#include <TranslationUtils.h>

#include "AppMessages.h"
#include "BannerView.h"
#include "ChatColors.h"
#include "ConnectionMark.h"
#include "FileListWindow.h"
#include "HotlineClient.h"
#include "HotlineProtocol.h"
#include "MainWindow.h"
#include "TransferThreads.h"


// A larger banner is refused before it is fetched, in bytes.
static const uint32 kMaxBannerSize = 512 * 1024;


/*!	\return Whether a file of that name, as the server gave it, lies in the folder that it is
	written to.
*/
static bool
stays_in_folder(const char* name)
{
	return strchr(name, '/') == NULL && strcmp(name, ".") != 0 && strcmp(name, "..") != 0;
}


/*!	Starts a thread and gives it its record. Resuming it cannot fail: nobody else knows a thread
	that was only just spawned.
	\return \c false if there is no thread; the record is gone then.
*/
template<typename Info>
static bool
start_transfer(status_t (*entry)(void*), const char* name, int32 priority,
	std::unique_ptr<Info> info)
{
	const thread_id thread = spawn_thread(entry, name, priority, info.get());
	if (thread < 0)
		return false;

	// The record is the thread's from here on.
	static_cast<void>(info.release());
	resume_thread(thread);
	return true;
}


// #pragma mark - Folders


/*!	\param path Of the folder on the server; \c NULL for the root. Opening one twice gives two
	windows.
*/
void
MainWindow::_OpenFileList(const char* path)
{
	FileListWindow* window = new FileListWindow(BRect(200, 150, 560, 500), this, path,
		fAssetsPath.String(), _CurrentConnection());
	fFileWindows.AddItem(window);
	window->Show();
	if (_IsConnected())
		fClient->RequestFileList(path);
}


/*!	Passes a listing on to the first window that shows its folder; without one it is dropped. */
void
MainWindow::_HandleFileList(const BMessage* message)
{
	const char* path = message->GetString("path", "");
	for (int32 i = 0; i < fFileWindows.CountItems(); i++) {
		BWindow* window = static_cast<BWindow*>(fFileWindows.ItemAt(i));
		if (!window->Lock())
			continue;

		// Another kind of window may have been opened where a closed one was.
		const FileListWindow* fileWindow = dynamic_cast<FileListWindow*>(window);
		const bool found = fileWindow != NULL && strcmp(fileWindow->Path(), path) == 0;
		if (found) {
			BMessage entries(*message);
			entries.what = kMsgFileEntry;
			window->PostMessage(&entries);
		}
		window->Unlock();
		if (found)
			return;
	}
}


void
MainWindow::_HandleFileWindowClosed(const BMessage* message)
{
	void* window;
	if (message->FindPointer("window", &window) == B_OK)
		fFileWindows.RemoveItem(window);
}


void
MainWindow::_HandleOpenFolder(const BMessage* message)
{
	const char* path = message->GetString("path", "");
	if (path[0] != '\0')
		_OpenFileList(path);
}


// #pragma mark - Downloads and uploads


void
MainWindow::_HandleDownloadFile(const BMessage* message)
{
	const char* name = message->GetString("name", "");
	if (name[0] == '\0' || !_IsConnected())
		return;

	BString line;
	line << "*** Requesting download: " << name << " ***\n";
	_ChatAppend(line.String(), kRequestColor);
	fClient->RequestDownload(message->GetString("path", ""), name);
}


/*!	Only the low 32 bits of the file's size go to the server. */
void
MainWindow::_HandleUploadFile(const BMessage* message)
{
	const char* name = message->GetString("name", "");
	const char* localPath = message->GetString("localpath", "");
	if (name[0] == '\0' || localPath[0] == '\0' || !_IsConnected())
		return;

	BString line;
	line << "*** Requesting upload: " << name << " ***\n";
	_ChatAppend(line.String(), kRequestColor);
	fClient->RequestUpload(message->GetString("path", ""), name,
		static_cast<uint32>(message->GetInt64("size", static_cast<int64>(0))), localPath);
}


void
MainWindow::_HandleDownloadReady(const BMessage* message)
{
	const uint32 reference = message->GetUInt32("ref", 0);
	const char* fileName = message->GetString("filename", "");
	if (reference == 0 || fileName[0] == '\0')
		return;
	// Without the program's folder there is none that the file may be written to.
	if (fDownloadsPath.IsEmpty() || !stays_in_folder(fileName)) {
		_ReportTransfer("Download", message);
		return;
	}

	std::unique_ptr<DownloadInfo> info(new DownloadInfo());
	info->address = message->GetString("address", "");
	info->port = message->GetUInt16("port", kDefaultPort);
	info->ref = reference;
	info->size = message->GetUInt32("size", 0);
	info->localPath << fDownloadsPath << "/" << fileName;
	info->filename = fileName;
	info->target = this;
	BString line;
	line.SetToFormat("*** Downloading %s (%" B_PRIu32 " bytes) ***\n", fileName, info->size);
	if (start_transfer(DownloadThread, "HL:Download", B_NORMAL_PRIORITY, std::move(info)))
		_ChatAppend(line.String(), kServerColor);
	else
		_ReportTransfer("Download", message);
}


void
MainWindow::_HandleUploadReady(const BMessage* message)
{
	const uint32 reference = message->GetUInt32("ref", 0);
	const char* localPath = message->GetString("localpath", "");
	if (reference == 0 || localPath[0] == '\0')
		return;

	std::unique_ptr<UploadInfo> info(new UploadInfo());
	info->address = message->GetString("address", "");
	info->port = message->GetUInt16("port", kDefaultPort);
	info->ref = reference;
	info->localPath = localPath;
	info->filename = message->GetString("filename", "");
	info->target = this;
	BString line;
	line << "*** Uploading " << info->filename << " ***\n";
	if (start_transfer(UploadThread, "HL:Upload", B_NORMAL_PRIORITY, std::move(info)))
		_ChatAppend(line.String(), kServerColor);
	else
		_ReportTransfer("Upload", message);
}


/*!	\param kind "Download" or "Upload".
	\param message With the "filename"; without a "success" the transfer has failed.
*/
void
MainWindow::_ReportTransfer(const char* kind, const BMessage* message)
{
	const bool success = message->GetBool("success");
	BString line;
	line << "*** " << kind << (success ? " complete: " : " failed: ")
		 << message->GetString("filename", "") << " ***\n";
	_ChatAppend(line.String(), success ? kSuccessColor : kFailureColor);
}


// #pragma mark - Banner


void
MainWindow::_HandleBannerReady(const BMessage* message)
{
	const uint32 reference = message->GetUInt32("ref", 0);
	const uint32 size = message->GetUInt32("size", 0);
	if (reference == 0 || size == 0 || size > kMaxBannerSize)
		return;

	std::unique_ptr<BannerDLInfo> info(new BannerDLInfo());
	info->address = message->GetString("address", "");
	info->port = message->GetUInt16("port", kDefaultPort);
	info->ref = reference;
	info->size = size;
	info->target = this;
	info->connection = _CurrentConnection();
	start_transfer(BannerThread, "HL:BannerDL", B_LOW_PRIORITY, std::move(info));
}


/*!	Shows the picture, whatever format it has; bytes that are none change nothing. The banner of a
	connection that has been lost is not shown again.
*/
void
MainWindow::_HandleBannerData(const BMessage* message)
{
	if (ConnectionOf(message) != 0 && !_IsConnected())
		return;
	const void* data;
	ssize_t size;
	if (message->FindData("data", B_RAW_TYPE, &data, &size) != B_OK)
		return;

	BMemoryIO stream(data, static_cast<size_t>(size));
	std::unique_ptr<BBitmap> bitmap(BTranslationUtils::GetBitmap(&stream));
	if (bitmap == NULL || !bitmap->IsValid())
		return;

	const float height = bitmap->Bounds().Height() + 1;
	fBannerView->SetBitmap(bitmap.release());
	fBannerView->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, height));
	InvalidateLayout();
}
