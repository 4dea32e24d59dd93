/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef HOTLINE_NOTIFICATIONS_H
#define HOTLINE_NOTIFICATIONS_H


/*!	What a HotlineClient posts to its target, with the fields of each message in their order.
	"socket" is the server's number of a user, "color" the user's status word, "address" and "port"
	are those of the control connection, sizes are in bytes. The last field of each is "connection"
	uint32, the number of the client that posts it (ConnectionMark.h).
*/
enum HotlineNotification {
	// The server has accepted the handshake, the login is on its way.
	kHLConnected = 'HLcn',
	// "error" string
	kHLConnectFailed = 'HLcf',
	kHLLoggedIn = 'HLli',
	// The server or the network has ended the connection.
	kHLDisconnected = 'HLdc',
	// "text" string, "chatRef" uint32 (0 is the public chat)
	kHLChatReceived = 'HLch',
	// "text" string, "nick" string, "socket" uint16, "icon" uint16
	kHLMsgReceived = 'HLmg',
	// "socket" uint16, "icon" uint16, "color" uint16, "nick" string; once for each user of a list
	kHLUserJoined = 'HLuj',
	// "socket" uint16, "icon" uint16, "color" uint16, "nick" string; for a user who came or changed
	kHLUserChanged = 'HLuc',
	// "socket" uint16
	kHLUserLeft = 'HLul',
	// "text" string; waits for SendAgreed()
	kHLAgreement = 'HLag',
	// "serverName" string, "version" uint16
	kHLServerInfo = 'HLsi',
	// "error" string
	kHLTaskError = 'HLte',
	kHLPoliteQuit = 'HLpq',
	// "text" string
	kHLBroadcast = 'HLbc',
	// "path" string; then one for each entry: "name" string, "type" string, "creator" string,
	// "size" int32
	kHLFileListReceived = 'HLfl',
	// "ref" uint32, "size" uint32, "filename" string, "address" string, "port" uint16
	kHLDownloadReady = 'HLdl',
	// "ref" uint32, "filename" string, "localpath" string, "address" string, "port" uint16
	kHLUploadReady = 'HLup',
	// "ref" uint32, "size" uint32, "address" string, "port" uint16
	kHLBannerReady = 'HLbr',
	// A banner has been asked for.
	kHLServerBanner = 'HLsb'
};


#endif // HOTLINE_NOTIFICATIONS_H
