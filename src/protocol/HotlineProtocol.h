/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef HOTLINE_PROTOCOL_H
#define HOTLINE_PROTOCOL_H


#include <cstddef>

#include <SupportDefs.h>


// The handshake: the client sends its magic, the server answers with its own, the last four bytes
// an error code.
extern const char kClientMagic[13];
extern const uint8 kServerMagic[8];
const uint32 kClientMagicLen = 12;
const uint32 kServerMagicLen = 8;

const uint16 kDefaultPort = 5500;
const uint16 kTrackerPort = 5498;
const uint16 kTrackerUDPPort = 5499;
const uint16 kTransferPort = 5501;

// In bytes. The header of a transaction counts with the number of its parameters, which is part of
// the data length.
const uint32 kHeaderSize = 22;
const uint32 kParamHeaderSize = 4;
const uint32 kUserEntryHeaderSize = 12;
const uint32 kFileEntryHeaderSize = 20;

// What the client says of itself in the login.
const uint16 kClientVersion = 151;

// The most bytes that the data length of a received transaction may announce.
const uint32 kMaxTransactionSize = 16 * 1024 * 1024;
// The most bytes of a parameter's value.
const uint32 kMaxParamSize = 65535;
// As much of a nick counts, in what is received and in an accepted agreement, in bytes.
const uint16 kMaxNickLength = 63;


enum HotlineClientCmd {
	kCmdGetNews = 101,
	kCmdPostNews = 103,
	kCmdSendChat = 105,
	kCmdLogin = 107,
	kCmdSendMsg = 108,
	kCmdKickUser = 110,
	kCmdCreateChat = 112,
	kCmdInviteToChat = 113,
	kCmdDeclineChat = 114,
	kCmdJoinChat = 115,
	kCmdLeaveChat = 116,
	kCmdSetChatSubject = 120,
	kCmdAgreed = 121,
	kCmdGetFileList = 200,
	kCmdGetFile = 202,
	kCmdPutFile = 203,
	kCmdDeleteFile = 204,
	kCmdMakeDir = 205,
	kCmdGetFileInfo = 206,
	kCmdSetFileInfo = 207,
	kCmdMoveFile = 208,
	kCmdDownloadBanner = 212,
	kCmdGetUserList = 300,
	kCmdGetUserInfo = 303,
	kCmdUserChange = 304
};

enum HotlineServerCmd {
	kSrvNewsPost = 102,
	kSrvMsg = 104,
	kSrvChat = 106,
	kSrvAgreement = 109,
	kSrvPoliteQuit = 111,
	kSrvChatInvite = 113,
	kSrvChatUserChange = 117,
	kSrvChatUserLeave = 118,
	kSrvChatSubject = 119,
	kSrvServerBanner = 122,
	kSrvUserChange = 301,
	kSrvUserLeave = 302,
	kSrvBroadcast = 355,
	// A reply: flags 0, is-reply 1, type 0.
	kSrvTask = 65536
};

enum HotlineFieldID {
	kFieldError = 100,
	kFieldData = 101,
	kFieldNick = 102,
	kFieldSocket = 103,
	kFieldIcon = 104,
	kFieldLogin = 105,
	kFieldPassword = 106,
	kFieldTransferRef = 107,
	kFieldTransferSize = 108,
	kFieldOption = 109,
	kFieldColor = 112,
	kFieldBan = 113,
	kFieldChatRef = 114,
	kFieldChatSubject = 115,
	kFieldBannerType = 152,
	kFieldNoAgreement = 154,
	kFieldVersion = 160,
	kFieldServerName = 162,
	kFieldFileList = 200,
	kFieldFileName = 201,
	kFieldFilePath = 202,
	kFieldFileType = 205,
	kFieldFileCreator = 206,
	kFieldFileSize = 207,
	kFieldUserList = 300
};


/*!	The first 22 bytes of a transaction. Both sizes count what follows them: 2, and for each
	parameter 4 and its value.
*/
struct HotlineHeader {
	// The whole first word: flags, is-reply and type.
	uint32 type;
	uint32 trans;
	// In a reply the error code.
	uint32 flags;
	uint32 totalSize;
	uint32 dataSize;
	uint16 paramCount;
};


/*!	One parameter of a transaction. The data is borrowed. */
struct HotlineParam {
	uint16 type;
	uint16 len;
	const uint8* data;
};


uint16 HotlineReadUInt16(const uint8* bytes);
uint32 HotlineReadUInt32(const uint8* bytes);
void HotlineWriteUInt16(uint8* bytes, uint16 value);
void HotlineWriteUInt32(uint8* bytes, uint32 value);

void HotlineReadHeader(const uint8* bytes, HotlineHeader* _header);
void HotlineWriteHeader(uint8* bytes, const HotlineHeader& header);

void HotlineEncodeCredential(uint8* data, uint32 len);
void HotlineCR2LF(char* text, uint32 len);
size_t HotlineCutText(const char* text, size_t length, size_t limit);


#endif // HOTLINE_PROTOCOL_H
