/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "HotlineClient.h"

#include <algorithm>
#include <cstring>

#include "HotlineProtocol.h"
#include "PathValue.h"
#include "TransactionBuilder.h"


// In bytes. A nickname that fits the 96 bytes of its change, and one in an accepted agreement.
static const size_t kMaxChangedNick = 64;
static const size_t kMaxAgreedNick = 63;

// The flattened file object that an upload sends: what stands around the file's own bytes and its
// name, and as how much of its name counts there.
static const uint32 kUploadOverhead = 74 + 56;
static const uint32 kMaxUploadName = 128;

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


/*!	A request about files or folders: its header, and each parameter as a header of its own and a
	borrowed value.
*/
class FileRequest {
public:
	FileRequest();

	void AddParam(uint16 type, const void* data, uint16 len);
	void AddFileName(const char* fileName);
	void AddFolder(const PathValue& folder);

	TransactionBuilder& Builder() { return fBuilder; }
	const TransactionPieces& Pieces() const { return fPieces; }

private:
	uint8 fBuffer[kHeaderSize + 3 * kParamHeaderSize];
	TransactionBuilder fBuilder;
	TransactionPieces fPieces;
};


/*!	The bytes of a text that fit into one parameter. */
static uint16
text_length(const char* text)
{
	return static_cast<uint16>(HotlineCutText(text, strlen(text), kMaxParamSize));
}


static bool
is_empty(const char* text)
{
	return text == NULL || text[0] == '\0';
}


FileRequest::FileRequest()
	: fBuilder(fBuffer, sizeof(fBuffer)),
	  fPieces(fBuffer, kHeaderSize)
{
}


void
FileRequest::AddParam(uint16 type, const void* data, uint16 len)
{
	fPieces.Add(fBuffer + fBuilder.Size(), kParamHeaderSize);
	fPieces.Add(data, len);
	fBuilder.BuildParamHeader(type, len);
}


void
FileRequest::AddFileName(const char* fileName)
{
	AddParam(kFieldFileName, fileName, text_length(fileName));
}


void
FileRequest::AddFolder(const PathValue& folder)
{
	if (!folder.IsEmpty())
		AddParam(kFieldFilePath, folder.Data(), folder.Length());
}


// #pragma mark -


/*!	Sends a line to the public chat, up to 65,535 bytes of it. */
void
HotlineClient::SendChat(const char* text)
{
	if (!fConnected || text == NULL)
		return;

	uint8 buffer[kHeaderSize + kParamHeaderSize];
	TransactionBuilder builder(buffer, sizeof(buffer));
	const uint16 length = text_length(text);
	builder.BuildParamHeader(kFieldData, length);

	TransactionPieces pieces(buffer, builder.Size());
	pieces.Add(text, length);
	_SendRequest(kCmdSendChat, builder, pieces);
}


/*!	Sends a message to one user, up to 65,535 bytes of it. */
void
HotlineClient::SendPrivateMsg(uint16 socket, const char* text)
{
	if (!fConnected || text == NULL)
		return;

	uint8 buffer[kHeaderSize + kParamHeaderSize + 2 + kParamHeaderSize];
	TransactionBuilder builder(buffer, sizeof(buffer));
	const uint16 length = text_length(text);
	builder.BuildParamInt16(kFieldSocket, socket);
	builder.BuildParamHeader(kFieldData, length);

	TransactionPieces pieces(buffer, builder.Size());
	pieces.Add(text, length);
	_SendRequest(kCmdSendMsg, builder, pieces);
}


/*!	Asks for the list of users; each is posted as a \c kHLUserJoined. */
void
HotlineClient::RequestUserList()
{
	uint8 buffer[kHeaderSize];
	TransactionBuilder builder(buffer, sizeof(buffer));
	_SendRequest(kCmdGetUserList, builder, TransactionPieces(buffer, builder.Size()),
		TaskList::kTaskUserList);
}


/*!	Tells the others of a new nickname, up to 64 bytes of it, and icon.
	\param nick NULL or empty to leave it as it is.
*/
void
HotlineClient::ChangeNickAndIcon(const char* nick, uint16 icon)
{
	if (!fConnected)
		return;

	uint8 buffer[kHeaderSize + kParamHeaderSize + 2 + kParamHeaderSize + kMaxChangedNick];
	TransactionBuilder builder(buffer, sizeof(buffer));
	builder.BuildParamInt16(kFieldIcon, icon);
	if (!is_empty(nick)) {
		const size_t length = HotlineCutText(nick, strlen(nick), kMaxChangedNick);
		builder.BuildParam(kFieldNick, nick, static_cast<uint16>(length));
	}
	_SendRequest(kCmdUserChange, builder, TransactionPieces(buffer, builder.Size()));
}


/*!	Asks for what the server knows of a user. Nothing is posted about the reply. */
void
HotlineClient::GetUserInfo(uint16 socket)
{
	uint8 buffer[kHeaderSize + kParamHeaderSize + 2];
	TransactionBuilder builder(buffer, sizeof(buffer));
	builder.BuildParamInt16(kFieldSocket, socket);
	_SendRequest(kCmdGetUserInfo, builder, TransactionPieces(buffer, builder.Size()),
		TaskList::kTaskUserInfo);
}


/*!	Asks for the contents of a folder; they are posted as a \c kHLFileListReceived.
	\param path With slashes between its components, NULL or empty for the root.
*/
void
HotlineClient::RequestFileList(const char* path)
{
	const PathValue folder(path);
	FileRequest request;
	request.AddFolder(folder);
	_SendRequest(kCmdGetFileList, request.Builder(), request.Pieces(), TaskList::kTaskFileList,
		path);
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
	FileRequest request;
	request.AddFileName(fileName);
	request.AddFolder(folder);
	request.AddParam(kFieldResumeInfo, kResumeInfo, kResumeInfoSize);

	BString path;
	if (!is_empty(dirPath))
		path << dirPath << "/";
	path << fileName;
	_SendRequest(kCmdGetFile, request.Builder(), request.Pieces(), TaskList::kTaskDownload,
		path.String());
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

	// Wraps at 32 bits, as the size that the upload itself announces does.
	const uint32 nameLength = static_cast<uint32>(
		std::min<size_t>(strlen(fileName), kMaxUploadName));
	uint8 sizeBytes[4];
	HotlineWriteUInt32(sizeBytes, fileSize + kUploadOverhead + nameLength);

	const PathValue folder(dirPath);
	FileRequest request;
	request.AddFileName(fileName);
	request.AddFolder(folder);
	request.AddParam(kFieldTransferSize, sizeBytes, sizeof(sizeBytes));
	_SendRequest(kCmdPutFile, request.Builder(), request.Pieces(), TaskList::kTaskUpload, fileName,
		localPath);
}


/*!	Asks for the server's banner; its transfer is posted as a \c kHLBannerReady. */
void
HotlineClient::RequestBanner()
{
	if (!fConnected)
		return;

	uint8 buffer[kHeaderSize];
	TransactionBuilder builder(buffer, sizeof(buffer));
	_SendRequest(kCmdDownloadBanner, builder, TransactionPieces(buffer, builder.Size()),
		TaskList::kTaskBanner);
}


/*!	Accepts the agreement, which lets the user in.
	\param nick Up to 63 bytes of it; NULL or empty for none.
*/
void
HotlineClient::SendAgreed(const char* nick, uint16 icon)
{
	if (!fConnected)
		return;

	uint8 buffer[kHeaderSize + kParamHeaderSize + kMaxAgreedNick + 2 * (kParamHeaderSize + 2)];
	TransactionBuilder builder(buffer, sizeof(buffer));
	if (!is_empty(nick)) {
		const size_t length = std::min(strlen(nick), kMaxAgreedNick);
		builder.BuildParam(kFieldNick, nick, static_cast<uint16>(length));
	}
	builder.BuildParamInt16(kFieldIcon, icon);
	builder.BuildParamInt16(kFieldBan, 0);
	_SendRequest(kCmdAgreed, builder, TransactionPieces(buffer, builder.Size()));
}
