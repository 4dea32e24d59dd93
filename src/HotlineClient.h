/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef HOTLINE_CLIENT_H
#define HOTLINE_CLIENT_H


#include <atomic>
#include <vector>

#include <Locker.h>
#include <OS.h>
#include <String.h>

#include "HotlineNotifications.h"
#include "SocketReference.h"
#include "TaskList.h"
#include "TransactionParser.h"


class BLooper;
class BMessage;
class TransactionPieces;


/*!	The connection to a Hotline server: connects, logs in, reads what the server sends and sends the user's requests.
	All that happens is posted to the target as a HotlineNotification; the target must outlive the client's threads.
	Connect(), Disconnect(), the getters and the destructor belong to the owner's thread, requests to any.
	Deleting it waits for its threads.
*/
class HotlineClient {
public:
	explicit HotlineClient(BLooper* target);
	HotlineClient(const HotlineClient&) = delete;
	~HotlineClient();

	HotlineClient& operator=(const HotlineClient&) = delete;

	void Connect(const char* address, uint16 port, const char* login, const char* password,
		const char* nick, uint16 icon);
	void Disconnect();

	// From the accepted handshake until the connection ends.
	bool IsConnected() const { return fConnected; }
	// Of the server of the login reply. A text lives until the next call of the same getter.
	const char* ServerName() const;
	uint16 ServerVersion() const { return fServerVersion; }
	const char* Address() const;
	uint16 Port() const { return fPort; }

	void SendChat(const char* text);
	void SendPrivateMsg(uint16 socket, const char* text);
	void RequestUserList();
	void ChangeNickAndIcon(const char* nick, uint16 icon);
	void GetUserInfo(uint16 socket);
	void RequestFileList(const char* path);
	void RequestDownload(const char* dirPath, const char* fileName);
	void RequestUpload(const char* dirPath, const char* fileName, uint32 fileSize,
		const char* localPath);
	void RequestBanner();
	void SendAgreed(const char* nick, uint16 icon);

private:
	struct Sending;

	// Connecting
	static status_t _ConnectThreadEntry(void* data);
	status_t _ConnectThread();
	const char* _OpenConnection(SocketReference* _socket);
	const char* _Handshake(const SocketReference& socket) const;
	bool _SetOpeningSocket(const SocketReference& socket);
	bool _AdoptSocket(const SocketReference& socket);
	bool _BeginSession(const SocketReference& socket);
	bool _StartReceiving();
	void _DropSocket(const SocketReference& socket);
	bool _MayProceed() const;
	void _StopOpening() const;
	void _SendLogin();

	// Moving bytes
	SocketReference _Socket() const;
	void _SendTransaction(const TransactionPieces& pieces);
	static void _SendInThread(Sending* sending);
	static status_t _SendThreadEntry(void* data);
	uint32 _BuildHeader(uint8* buf, uint32 type, uint32 totalDataLen, uint16 paramCount);

	// Receiving
	static status_t _ReceiveThreadEntry(void* data);
	status_t _ReceiveLoop();
	bool _ReceiveSome(const SocketReference& socket);
	void _ProcessPayload();

	// Replies
	void _HandleTask();
	void _HandleLoginReply();
	void _HandleTaskError();
	void _HandleServerInfo();
	void _HandleUserList();
	void _HandleFileList(const char* path);
	void _HandleDownload(const TaskInfo* task);
	void _HandleUpload(const TaskInfo* task);
	void _HandleBannerDownload(const TaskInfo* task);
	void _ReadTransfer(uint32* _ref, uint32* _size) const;
	void _AddServer(BMessage* message) const;

	// The server's own transactions
	void _HandleChat();
	void _HandleMessage();
	void _HandleUserChange();
	void _HandleUserLeave();
	void _HandleAgreement();
	void _HandlePoliteQuit();
	void _HandleBroadcast();
	void _HandleServerBanner();

	void _Notify(uint32 what);
	void _Notify(BMessage* msg);

	BLooper* const fTarget;

	// Held while a transaction is written, so that no two mix.
	BLocker fSendLock;

	// Guards the following and the start of threads. Never held while sending or waiting.
	mutable BLocker fStateLock;
	SocketReference fSocket;
	// The connect thread's, before the connection stands.
	SocketReference fOpeningSocket;
	// Connect threads that a later Connect() has replaced.
	std::vector<thread_id> fReplacedThreads;
	BString fConnectAddress;
	uint16 fConnectPort;
	BString fConnLogin;
	BString fConnPassword;
	BString fConnNick;
	uint16 fConnIcon;
	BString fServerName;
	BString fAddress;

	// For any thread.
	std::atomic<thread_id> fRecvThread;
	std::atomic<thread_id> fConnectThread;
	std::atomic<bool> fConnected;
	std::atomic<bool> fRunning;
	// Raised by the destructor: from then on nothing is posted, sent or started.
	std::atomic<bool> fClosing;
	std::atomic<uint32> fTransID;
	std::atomic<uint16> fServerVersion;
	std::atomic<uint16> fPort;
	TaskList fTasks;

	// The receive thread's, and before that runs the connect thread's.
	uint32 fLoginTrans;
	TransactionParser fParser;

	// What the getters handed out last.
	mutable BString fShownServerName;
	mutable BString fShownAddress;
};


#endif // HOTLINE_CLIENT_H
