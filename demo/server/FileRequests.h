/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_FILE_REQUESTS_H
#define DEMO_FILE_REQUESTS_H


#include "FileTree.h"


namespace demo {


class Server;
class Session;
class Transaction;
struct TransferOrder;


/*!	Answers the requests of one session that have to do with files: listings, downloads, uploads
	and the banner. Part of the session, which it borrows, and used on the event loop's thread.
*/
class FileRequests {
public:
	FileRequests(Server& server, Session& session);

	// \return \c false when the request is none of these.
	bool Handle(const Transaction& request);

private:
	void _HandleList(const Transaction& request);
	void _HandleDownload(const Transaction& request);
	void _HandleUpload(const Transaction& request);
	void _HandleBanner(const Transaction& request);

	FileNode* _FindFolder(const Transaction& request, FileTree::Path* _path);
	bool _IsAllowed(const FileNode& node) const;
	void _ReplyWithReference(const Transaction& request, TransferOrder order,
		const FileContent* file);

	Server& fServer;
	Session& fSession;
};


} // namespace demo


#endif // DEMO_FILE_REQUESTS_H
