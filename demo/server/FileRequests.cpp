/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FileRequests.h"

#include <utility>

#include "FileObject.h"
#include "ProtocolCodes.h"
#include "Server.h"
#include "Session.h"
#include "Text.h"
#include "Transaction.h"
#include "TransferDesk.h"


namespace demo {


static const size_t kShownNameSize = 80;
static const size_t kMaxNameSize = 255;


FileRequests::FileRequests(Server& server, Session& session)
	: fServer(server),
	  fSession(session)
{
}


bool
FileRequests::Handle(const Transaction& request)
{
	switch (request.Type()) {
		case kRequestFileList:
			_HandleList(request);
			return true;
		case kRequestDownload:
			_HandleDownload(request);
			return true;
		case kRequestUpload:
			_HandleUpload(request);
			return true;
		case kRequestBanner:
			_HandleBanner(request);
			return true;
		default:
			return false;
	}
}


void
FileRequests::_HandleList(const Transaction& request)
{
	FileTree::Path path;
	const FileNode* folder = _FindFolder(request, &path);
	if (folder == NULL)
		return;
	Transaction reply = Transaction::Reply(request.Id());
	for (const auto& child : folder->Children())
		reply.AddText(kFieldFileEntry, child->Entry());
	fSession.Reply(reply);
}


void
FileRequests::_HandleDownload(const Transaction& request)
{
	FileTree::Path path;
	const FileNode* folder = _FindFolder(request, &path);
	if (folder == NULL)
		return;
	std::string name;
	request.FindText(kFieldFileName, &name);
	std::string shown = "\"" + cut_text(name, kShownNameSize) + "\"";
	const FileNode* file = folder->Find(name);
	if (file == NULL || file->Record().trouble == Trouble::kMissing)
		fSession.Refuse(request.Id(), "There is no file " + shown + " here.");
	else if (file->IsFolder())
		fSession.Refuse(request.Id(), shown + " is a folder.");
	else if (!_IsAllowed(*file))
		fSession.Refuse(request.Id(), "Only keepers may have " + shown + ".");
	else {
		const FileRecord& record = file->Record();
		TransferOrder order;
		order.content = flatten_file(record);
		order.trouble = record.trouble;
		_ReplyWithReference(request, std::move(order), record.data.get());
	}
}


void
FileRequests::_HandleUpload(const Transaction& request)
{
	TransferOrder order;
	order.kind = TransferOrder::kReceive;
	order.nick = fSession.Identity().nick;
	const FileNode* folder = _FindFolder(request, &order.folder);
	if (folder == NULL)
		return;
	request.FindText(kFieldFileName, &order.name);
	uint32_t size = 0;
	request.FindInt(kFieldTransferSize, &size);
	order.announcedSize = size;

	std::string shown = "\"" + cut_text(order.name, kShownNameSize) + "\"";
	const FileNode* existing = folder->Find(order.name);
	if (order.name.empty() || order.name.size() > kMaxNameSize)
		fSession.Refuse(request.Id(), "A file needs a name of at most 255 bytes.");
	else if (existing != NULL && !existing->IsUpload())
		fSession.Refuse(request.Id(), "There is a file " + shown + " already.");
	else if (!fServer.Files().HasRoomFor(size))
		fSession.Refuse(request.Id(), "There is no room left for " + shown + ".");
	else {
		uint32_t reference = fServer.Transfers().Add(std::move(order));
		Transaction reply = Transaction::Reply(request.Id());
		reply.AddInt32(kFieldTransferReference, reference);
		fSession.Reply(reply);
	}
}


void
FileRequests::_HandleBanner(const Transaction& request)
{
	TransferOrder order;
	order.content.Append(fServer.Banner());
	_ReplyWithReference(request, std::move(order), NULL);
}


/*!	The folder that the request names; NULL, with the request refused, if it cannot be had. */
FileNode*
FileRequests::_FindFolder(const Transaction& request, FileTree::Path* _path)
{
	std::string value;
	request.FindText(kFieldFilePath, &value);
	if (!FileTree::ParsePath(value, _path)) {
		fSession.Refuse(request.Id(), "That is no path.");
		return NULL;
	}
	FileNode* folder = fServer.Files().FindFolder(*_path);
	if (folder == NULL) {
		std::string shown = cut_text(_path->back(), kShownNameSize);
		fSession.Refuse(request.Id(), "There is no folder \"" + shown + "\".");
		return NULL;
	}
	if (!_IsAllowed(*folder)) {
		fSession.Refuse(request.Id(), "Only keepers may look into this folder.");
		return NULL;
	}
	return folder;
}


bool
FileRequests::_IsAllowed(const FileNode& node) const
{
	return !node.Record().isLocked || fSession.IsKeeper();
}


/*!	\param file The file that the content of the order is made of; NULL if it is none. */
void
FileRequests::_ReplyWithReference(const Transaction& request, TransferOrder order,
	const FileContent* file)
{
	auto size = static_cast<uint32_t>(order.content.Size());
	uint32_t reference = 0;
	if (order.trouble != Trouble::kNoReference)
		reference = fServer.Transfers().Add(std::move(order));
	Transaction reply = Transaction::Reply(request.Id());
	reply.AddInt32(kFieldTransferSize, size);
	if (file != NULL)
		reply.AddInt32(kFieldFileSize, static_cast<uint32_t>(file->Size()));
	reply.AddInt32(kFieldTransferReference, reference);
	fSession.Reply(reply);
}


} // namespace demo
