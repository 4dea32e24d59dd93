/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <cstdint>
#include <cstring>

#include <Message.h>

#include "HotlineNotifications.h"
#include "Require.h"
#include "ServerEvents.h"
#include "ServerReplies.h"
#include "TransactionParser.h"


static void
require_text(const BMessage& message, const char* name, size_t limit)
{
	const char* text = message.GetString(name, NULL);
	require(text != NULL && strlen(text) <= limit, name);
}


static void
require_user(const BMessage& message)
{
	require_text(message, "nick", 63);
	for (const char* field : {"socket", "icon", "color"})
		require(message.HasData(field, B_UINT16_TYPE), field);
}


static void
read_events(const ParameterWalker& params)
{
	BMessage chat;
	if (ReadChat(params, &chat)) {
		require_text(chat, "text", 65535);
		require(chat.HasData("chatRef", B_UINT32_TYPE), "a chat has a reference");
	}
	BMessage received;
	if (ReadPrivateMessage(params, &received)) {
		require_text(received, "text", 65535);
		require_text(received, "nick", 63);
	}
	BMessage change;
	require(ReadUserChange(params, &change), "whatever is said of a user is told");
	require_user(change);
	BMessage leave;
	require(ReadUserLeave(params, &leave) && leave.HasData("socket", B_UINT16_TYPE), "who left");
	BMessage agreement;
	if (ReadAgreement(params, &agreement))
		require_text(agreement, "text", 65535);
	BMessage broadcast;
	if (ReadBroadcast(params, &broadcast))
		require_text(broadcast, "text", 65535);
}


static void
read_replies(const ParameterWalker& params)
{
	BMessage error;
	ReadTaskError(params, &error);
	require_text(error, "error", 65535);

	ServerInfo info;
	BMessage server;
	ReadServerInfo(params, &info, &server);
	require_text(server, "serverName", 255);

	ParameterWalker users = params;
	bool hasMore = true;
	while (hasMore) {
		BMessage user;
		hasMore = ReadNextUser(&users, &user);
		if (hasMore)
			require_user(user);
	}

	BMessage download;
	if (ReadDownload(params, "a/name", &download)) {
		require(download.GetUInt32("ref", 0) != 0, "a transfer has a reference");
		require(strcmp(download.GetString("filename", ""), "name") == 0, "the name asked for");
	}
	BMessage upload;
	if (ReadUpload(params, "name", "/name", &upload))
		require(upload.GetUInt32("ref", 0) != 0, "a transfer has a reference");
	BMessage banner;
	if (ReadBannerDownload(params, &banner))
		require(banner.GetUInt32("size", 0) != 0, "a banner has a size");
}


/*!	The input is what a server sends after the handshake. Each transaction is read as whatever it
	may be, as the id of a reply decides that.
*/
extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	TransactionParser parser;
	while (size > 0) {
		const uint32 count = static_cast<uint32>(std::min<size_t>(parser.BytesNeeded(), size));
		require(count > 0, "the parser goes on");
		memcpy(parser.Room(), data, count);
		data += count;
		size -= count;
		const TransactionParser::Result result = parser.Advance(count);
		if (result == TransactionParser::kFailed)
			return 0;
		if (result == TransactionParser::kComplete) {
			read_events(parser.Params());
			read_replies(parser.Params());
			require(parser.Reset(), "there is memory for a header");
		}
	}
	return 0;
}
