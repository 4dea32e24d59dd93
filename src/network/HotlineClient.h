/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef HOTLINE_CLIENT_H
#define HOTLINE_CLIENT_H


#include <atomic>
#include <memory>
#include <vector>

#include <Locker.h>
#include <Messenger.h>
#include <OS.h>
#include <String.h>

#include "HotlineNotifications.h"
#include "RequestChannel.h"
#include "ServerReplies.h"
#include "Socket.h"
#include "TransactionReceiver.h"


class BLooper;
class BMessage;
class ConnectionAttempt;


/*!	The connection to a Hotline server: connects, logs in, reads what the server sends and sends the
	user's requests.
	All that happens is posted to the target as a HotlineNotification, for as long as that is there.
	Connect(), Disconnect(), the getters and the destructor belong to the owner's thread, requests
	to any: none of them waits for the server. Deleting it waits for its threads, which are woken; a
	name that is being resolved is left behind.
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

	// What tells this client's notifications from those of all others: their field "connection".
	// Never 0.
	uint32 Connection() const { return fConnection; }

	// From the accepted handshake until the connection ends.
	bool IsConnected() const { return fConnected; }
	// Of the server of the login reply. A text lives until the next call of the same getter.
	const char* ServerName() const;
	uint16 ServerVersion() const;
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
	// As whom an attempt logs in.
	struct Login {
		BString name;
		BString password;
		BString nick;
		uint16 icon;
	};

	// Connecting
	static status_t _ConnectThreadEntry(void* data);
	status_t _ConnectThread();
	const char* _OpenConnection(Socket* _socket);
	const char* _Handshake(const Socket& socket) const;
	bool _AdoptSocket(const Socket& socket);
	bool _BeginSession(const Socket& socket);
	bool _StartReceiving();
	void _DropSocket(const Socket& socket);
	bool _MayProceed() const;
	void _SendLogin(const Login& login);

	Socket _CurrentSocket() const;

	// Receiving
	static status_t _ReceiveThreadEntry(void* data);
	status_t _ReceiveLoop();
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
	ParameterWalker _Params() const { return fReceiver.Transaction().Params(); }

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
	void _NotifyTransfer(BMessage* message);

	BLooper* const fTarget;
	const BMessenger fMessenger;
	const uint32 fConnection;

	// Its lock is taken before fStateLock where both are.
	RequestChannel fRequests;

	// Guards the following and the start of threads. Never held while sending or waiting.
	mutable BLocker fStateLock;
	Socket fSocket;
	// The connect thread's, until the connection stands.
	std::shared_ptr<ConnectionAttempt> fAttempt;
	// Connect threads that a later Connect() has replaced.
	std::vector<thread_id> fReplacedThreads;
	BString fConnectAddress;
	uint16 fConnectPort;
	BString fConnLogin;
	BString fConnPassword;
	BString fConnNick;
	uint16 fConnIcon;
	ServerInfo fServerInfo;
	BString fAddress;

	// For any thread.
	std::atomic<thread_id> fRecvThread;
	std::atomic<thread_id> fConnectThread;
	std::atomic<bool> fConnected;
	std::atomic<bool> fRunning;
	// Raised by the destructor: from then on nothing is posted, sent or started.
	std::atomic<bool> fClosing;
	std::atomic<uint16> fPort;

	// The receive thread's, and before that runs the connect thread's.
	uint32 fLoginTrans;
	TransactionReceiver fReceiver;

	// What the getters handed out last.
	mutable BString fShownServerName;
	mutable BString fShownAddress;
};


#endif // HOTLINE_CLIENT_H
