/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransferThreads.h"

#include <algorithm>
#include <memory>
#include <new>

#include <Entry.h>
#include <File.h>
#include <Message.h>

#include "AppMessages.h"
#include "ConnectionAttempt.h"
#include "ConnectionMark.h"
#include "Delivery.h"
#include "FlattenedFile.h"
#include "FlattenedFileReader.h"


// File data moves in pieces of this size. Time-outs are in seconds.
static const size_t kTransferBufferSize = 16384;
// Copying to and from the system is some percent faster where a cache line begins.
static const size_t kTransferBufferAlignment = 64;
static const int kTransferTimeout = 60;
static const int kBannerTimeout = 30;
static const int kNoTimeout = 0;


/*!	Waits for room in the target's queue. */
static void
post(const BMessenger& target, BMessage* message)
{
	while (!Deliver(target, message))
		continue;
}


static void
post_outcome(const BMessenger& target, uint32 what, const BString& fileName, bool success)
{
	BMessage message(what);
	message.AddString("filename", fileName);
	message.AddBool("success", success);
	post(target, &message);
}


/*!	Connects to a server's transfer port, one above its control port. A signal is no error there.
	\return A socket that is not set if it failed.
*/
static Socket
connect_transfer(const BString& address, uint16 controlPort, int receiveTimeout, int sendTimeout)
{
	ConnectionAttempt attempt(address.String(), controlPort + 1u,
		{receiveTimeout, sendTimeout, Socket::kIgnoreSignals, false});
	return attempt.Run() == ConnectionAttempt::kConnected ? attempt.ConnectedSocket() : Socket();
}


// #pragma mark - download


/*!	Asks for the file and reads up to the first byte of its data. */
static bool
open_download(const Socket& socket, FlattenedFileReader& reader, const DownloadInfo& info)
{
	uint8 request[kTransferRequestSize];
	FlattenedFile::BuildTransferRequest(request, info.ref, 0);
	if (socket.Send(request, sizeof(request)) != static_cast<ssize_t>(sizeof(request)))
		return false;

	uint8 piece[FlattenedFileReader::kMaxDescriptionPiece];
	while (!reader.IsAtData()) {
		const size_t size = reader.NextSize();
		if (socket.ReceiveAll(piece, size) != static_cast<ssize_t>(size))
			return false;
		reader.Take(piece, size);
	}
	return true;
}


/*!	A pipe or a device is not opened: that may wait for ever, or do something. */
static bool
is_free_or_plain(const char* path)
{
	const BEntry entry(path, true);
	return !entry.Exists() || entry.IsFile();
}


/*!	Writes the data to the file as it arrives, until it is complete or the connection ends. A file
	that cannot be written to, on a full disk, say, does not end the transfer.
*/
static void
receive_file_data(const Socket& socket, FlattenedFileReader& reader, BFile& file)
{
	alignas(kTransferBufferAlignment) uint8 buffer[kTransferBufferSize];
	while (!reader.IsDone()) {
		const size_t size = std::min(static_cast<size_t>(reader.NextSize()), sizeof(buffer));
		const ssize_t received = socket.Receive(buffer, size);
		if (received < 1)
			return;
		file.Write(buffer, static_cast<size_t>(received));
		reader.Take(buffer, static_cast<size_t>(received));
	}
}


/*!	Fetches a file and replaces the one at its local path. Only the data's end is reported, as
	kMsgDownloadDone; what fails before its first byte, opening the local file included, stays
	silent.
*/
status_t
DownloadThread(void* data)
{
	const std::unique_ptr<DownloadInfo> info(static_cast<DownloadInfo*>(data));

	Socket socket = connect_transfer(info->address, info->port, kTransferTimeout, kNoTimeout);
	FlattenedFileReader reader;
	if (!open_download(socket, reader, *info))
		return 1;

	{
		if (!is_free_or_plain(info->localPath.String()))
			return 1;
		BFile file(info->localPath.String(), B_WRITE_ONLY | B_CREATE_FILE | B_ERASE_FILE);
		if (file.InitCheck() != B_OK)
			return 1;
		receive_file_data(socket, reader, file);
	}
	socket = Socket();
	info->place.reset();

	post_outcome(info->target, kMsgDownloadDone, info->filename, reader.IsDone());
	return 0;
}


// #pragma mark - upload


/*!	Sends the request and everything of the file object that stands before the file's own bytes. */
static bool
send_file_description(const Socket& socket, const UploadInfo& info, off_t fileSize)
{
	const size_t nameLength = static_cast<size_t>(info.filename.Length());

	uint8 request[kTransferRequestSize];
	FlattenedFile::BuildTransferRequest(request, info.ref,
		FlattenedFile::TotalSize(nameLength, fileSize));
	uint8 header[kFileObjectHeaderSize];
	FlattenedFile::BuildHeader(header);
	uint8 informationHeader[kForkHeaderSize];
	FlattenedFile::BuildInformationForkHeader(informationHeader, nameLength);
	uint8 information[kMaxInformationForkSize];
	const size_t informationSize = FlattenedFile::BuildInformationFork(information,
		info.filename.String(), nameLength);
	uint8 dataHeader[kForkHeaderSize];
	FlattenedFile::BuildDataForkHeader(dataHeader, static_cast<uint32>(fileSize));

	return socket.SendAll(request, sizeof(request)) && socket.SendAll(header, sizeof(header))
		&& socket.SendAll(informationHeader, sizeof(informationHeader))
		&& socket.SendAll(information, informationSize)
		&& socket.SendAll(dataHeader, sizeof(dataHeader));
}


static bool
send_file_data(const Socket& socket, BFile& file, off_t remaining)
{
	alignas(kTransferBufferAlignment) uint8 buffer[kTransferBufferSize];
	while (remaining > 0) {
		const size_t piece = static_cast<size_t>(
			std::min(remaining, static_cast<off_t>(sizeof(buffer))));
		const ssize_t count = file.Read(buffer, piece);
		if (count < 1 || !socket.SendAll(buffer, static_cast<size_t>(count)))
			return false;
		remaining -= count;
	}
	return true;
}


/*!	Sends a local file. Every outcome is reported, once, as kMsgUploadDone. */
status_t
UploadThread(void* data)
{
	const std::unique_ptr<UploadInfo> info(static_cast<UploadInfo*>(data));

	BFile file(info->localPath.String(), B_READ_ONLY);
	off_t size = 0;
	if (file.InitCheck() == B_OK && file.GetSize(&size) != B_OK)
		size = 0;

	Socket socket;
	if (file.InitCheck() == B_OK)
		socket = connect_transfer(info->address, info->port, kNoTimeout, kTransferTimeout);
	if (!socket.IsSet()) {
		info->place.reset();
		post_outcome(info->target, kMsgUploadDone, info->filename, false);
		return 1;
	}

	const bool success = send_file_description(socket, *info, size)
		&& send_file_data(socket, file, size);
	socket = Socket();
	info->place.reset();

	post_outcome(info->target, kMsgUploadDone, info->filename, success);
	return 0;
}


// #pragma mark - banner


/*!	Fetches the bare bytes of the banner and posts what came of them, if anything, as
	kMsgBannerData.
*/
status_t
BannerThread(void* data)
{
	const std::unique_ptr<BannerDLInfo> info(static_cast<BannerDLInfo*>(data));

	Socket socket = connect_transfer(info->address, info->port, kBannerTimeout, kBannerTimeout);
	uint8 request[kTransferRequestSize];
	FlattenedFile::BuildTransferRequest(request, info->ref, 0);
	if (!socket.SendAll(request, sizeof(request)))
		return 1;

	const std::unique_ptr<uint8[]> bytes(new (std::nothrow) uint8[info->size]);
	if (bytes == NULL)
		return 1;

	size_t count = 0;
	while (count < info->size) {
		const ssize_t received = socket.Receive(bytes.get() + count, info->size - count);
		if (received < 1)
			break;
		count += static_cast<size_t>(received);
	}
	socket = Socket();

	if (count > 0) {
		BMessage message(kMsgBannerData);
		message.AddData("data", B_RAW_TYPE, bytes.get(), static_cast<ssize_t>(count));
		AddConnection(&message, info->connection);
		post(info->target, &message);
	}
	return 0;
}
