/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "HotlineClient.h"

#include <algorithm>
#include <cstring>

#include "FlattenedFile.h"
#include "HotlineProtocol.h"
#include "PathValue.h"
#include "TransactionBuilder.h"


// In bytes: as long a nickname as is announced when it changes.
static const size_t kMaxChangedNick = 64;

// Of the request for a download.
static const uint16 kFieldResumeInfo = 203;
static const uint32 kResumeInfoSize = 74;

// clang-format off
/*!	Asks for a whole file, both forks from their beginnings. */
static const uint8 kResumeInfo[kResumeInfoSize] = {
	'R', 'F', 'L', 'T',
	0, 1,												// version
	0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,	// reserved, 34 bytes
	0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
	0, 2,												// number of forks
	'D', 'A', 'T', 'A', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
	'M', 'A', 'C', 'R', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0
};
// clang-format on


static bool
is_empty(const char* text)
{
	return text == NULL || text[0] == '\0';
}


/*!	Adds a text as it stands where it is. */
static void
borrow_text(TransactionBuilder& builder, uint16 field, const char* text)
{
	builder.BorrowParam(field, text,
		static_cast<uint16>(HotlineCutText(text, strlen(text), kMaxParamSize)));
}


static void
borrow_folder(TransactionBuilder& builder, const PathValue& folder)
{
	if (!folder.IsEmpty())
		builder.BorrowParam(kFieldFilePath, folder.Data(), folder.Length());
}


// #pragma mark -


/*!	Sends a line to the public chat, up to 65,535 bytes of it. */
void
HotlineClient::SendChat(const char* text)
{
	if (!fConnected || text == NULL)
		return;

	TransactionBuilder request;
	borrow_text(request, kFieldData, text);
	fRequests.Send(kCmdSendChat, request);
}


/*!	Sends a message to one user, up to 65,535 bytes of it. */
void
HotlineClient::SendPrivateMsg(uint16 socket, const char* text)
{
	if (!fConnected || text == NULL)
		return;

	TransactionBuilder request;
	request.BuildParamInt16(kFieldSocket, socket);
	borrow_text(request, kFieldData, text);
	fRequests.Send(kCmdSendMsg, request);
}


/*!	Asks for the list of users; each is posted as a \c kHLUserJoined. */
void
HotlineClient::RequestUserList()
{
	TransactionBuilder request;
	fRequests.Send(kCmdGetUserList, request, TaskList::kTaskUserList);
}


/*!	Tells the others of a new nickname, up to 64 bytes of it, and icon.
	\param nick NULL or empty to leave it as it is.
*/
void
HotlineClient::ChangeNickAndIcon(const char* nick, uint16 icon)
{
	if (!fConnected)
		return;

	TransactionBuilder request;
	request.BuildParamInt16(kFieldIcon, icon);
	if (!is_empty(nick)) {
		const size_t length = HotlineCutText(nick, strlen(nick), kMaxChangedNick);
		request.BuildParam(kFieldNick, nick, static_cast<uint16>(length));
	}
	fRequests.Send(kCmdUserChange, request);
}


/*!	Asks for what the server knows of a user. Nothing is posted about the reply. */
void
HotlineClient::GetUserInfo(uint16 socket)
{
	TransactionBuilder request;
	request.BuildParamInt16(kFieldSocket, socket);
	fRequests.Send(kCmdGetUserInfo, request, TaskList::kTaskUserInfo);
}


/*!	Asks for the contents of a folder; they are posted as a \c kHLFileListReceived.
	\param path With slashes between its components, NULL or empty for the root.
*/
void
HotlineClient::RequestFileList(const char* path)
{
	const PathValue folder(path);
	TransactionBuilder request;
	request.EndPiece();
	borrow_folder(request, folder);
	fRequests.Send(kCmdGetFileList, request, TaskList::kTaskFileList, path);
}


/*!	Asks for a file; its transfer is posted as a \c kHLDownloadReady.
	\param dirPath The folder's path, as for RequestFileList().
*/
void
HotlineClient::RequestDownload(const char* dirPath, const char* fileName)
{
	if (!fConnected || is_empty(fileName))
		return;

	const PathValue folder(dirPath);
	TransactionBuilder request;
	request.EndPiece();
	borrow_text(request, kFieldFileName, fileName);
	borrow_folder(request, folder);
	request.BorrowParam(kFieldResumeInfo, kResumeInfo, kResumeInfoSize);

	BString path;
	if (!is_empty(dirPath))
		path << dirPath << "/";
	path << fileName;
	fRequests.Send(kCmdGetFile, request, TaskList::kTaskDownload, path.String());
}


/*!	Offers a file; its transfer is posted as a \c kHLUploadReady.
	\param dirPath The folder's path, as for RequestFileList().
	\param fileName What it shall be called there.
	\param fileSize In bytes.
	\param localPath Comes back with the notification.
*/
void
HotlineClient::RequestUpload(const char* dirPath, const char* fileName, uint32 fileSize,
	const char* localPath)
{
	if (!fConnected || is_empty(fileName))
		return;

	uint8 size[sizeof(uint32)];
	HotlineWriteUInt32(size, FlattenedFile::TotalSize(strlen(fileName), fileSize));

	const PathValue folder(dirPath);
	TransactionBuilder request;
	request.EndPiece();
	borrow_text(request, kFieldFileName, fileName);
	borrow_folder(request, folder);
	request.BorrowParam(kFieldTransferSize, size, sizeof(size));
	fRequests.Send(kCmdPutFile, request, TaskList::kTaskUpload, fileName, localPath);
}


/*!	Asks for the server's banner; its transfer is posted as a \c kHLBannerReady. */
void
HotlineClient::RequestBanner()
{
	if (!fConnected)
		return;

	TransactionBuilder request;
	fRequests.Send(kCmdDownloadBanner, request, TaskList::kTaskBanner);
}


/*!	Accepts the agreement, which lets the user in.
	\param nick Up to \c kMaxNickLength bytes of it; NULL or empty for none.
*/
void
HotlineClient::SendAgreed(const char* nick, uint16 icon)
{
	if (!fConnected)
		return;

	TransactionBuilder request;
	if (!is_empty(nick)) {
		const size_t length = std::min<size_t>(strlen(nick), kMaxNickLength);
		request.BuildParam(kFieldNick, nick, static_cast<uint16>(length));
	}
	request.BuildParamInt16(kFieldIcon, icon);
	request.BuildParamInt16(kFieldBan, 0);
	fRequests.Send(kCmdAgreed, request);
}
