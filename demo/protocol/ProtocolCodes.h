/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_PROTOCOL_CODES_H
#define DEMO_PROTOCOL_CODES_H


#include <cstddef>
#include <cstdint>


namespace demo {


// The numbers of the Hotline protocol, as a server sees them: requests come in, notices go out.

enum : uint16_t {
	kRequestChat = 105,
	kRequestLogin = 107,
	kRequestPrivateMessage = 108,
	kRequestAgreed = 121,
	kRequestFileList = 200,
	kRequestDownload = 202,
	kRequestUpload = 203,
	kRequestBanner = 212,
	kRequestUserList = 300,
	kRequestUserInfo = 303,
	kRequestUserChange = 304
};

enum : uint16_t {
	kNoticeNewsPost = 102,
	kNoticePrivateMessage = 104,
	kNoticeChat = 106,
	kNoticeAgreement = 109,
	kNoticePoliteQuit = 111,
	kNoticeBanner = 122,
	kNoticeUserChange = 301,
	kNoticeUserLeave = 302,
	kNoticeBroadcast = 355
};

enum : uint16_t {
	kFieldErrorText = 100,
	kFieldText = 101,
	kFieldNick = 102,
	kFieldSocket = 103,
	kFieldIcon = 104,
	kFieldLogin = 105,
	kFieldPassword = 106,
	kFieldTransferReference = 107,
	kFieldTransferSize = 108,
	kFieldStatus = 112,
	kFieldBannerType = 152,
	kFieldNoAgreement = 154,
	kFieldVersion = 160,
	kFieldServerName = 162,
	kFieldFileEntry = 200,
	kFieldFileName = 201,
	kFieldFilePath = 202,
	kFieldFileSize = 207,
	kFieldUserEntry = 300
};

/*!	What a client says first: protocol, sub-protocol, version 1, sub-version 2. */
inline constexpr uint8_t kHandshake[] = {'T', 'R', 'T', 'P', 'H', 'O', 'T', 'L', 0x00, 0x01, 0x00,
	0x02};
inline constexpr size_t kHandshakeMagicSize = 8;
/*!	The answer; the last byte is an error code, 0 for none. */
inline constexpr uint8_t kHandshakeReply[] = {'T', 'R', 'T', 'P', 0x00, 0x00, 0x00, 0x00};
inline constexpr uint8_t kHandshakeRefusal[] = {'T', 'R', 'T', 'P', 0x00, 0x00, 0x00, 0x01};

inline constexpr uint16_t kServerVersion = 190;
/*!	Longest nick that is passed on, in bytes. */
inline constexpr size_t kMaxNickSize = 63;


} // namespace demo


#endif // DEMO_PROTOCOL_CODES_H
