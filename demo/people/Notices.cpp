/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Notices.h"

#include <algorithm>

#include "ProtocolCodes.h"
#include "User.h"


namespace demo {


static const uint16_t kUnknownNotice = 777;
static const uint16_t kUnknownField = 4711;


static std::string
with_returns(std::string text)
{
	std::replace(text.begin(), text.end(), '\n', '\r');
	return text;
}


/*!	Chat lines travel complete, with the speaker in front of what is said. */
Transaction
chat_line(const User& speaker, const std::string& text)
{
	return chat_text(speaker.nick + ":  " + text);
}


/*!	A line of the chat that stands as it is, without a speaker. */
Transaction
chat_text(const std::string& text)
{
	Transaction notice(kNoticeChat);
	notice.AddText(kFieldText, with_returns(text));
	return notice;
}


Transaction
private_message(const User& sender, const std::string& text)
{
	Transaction notice(kNoticePrivateMessage);
	notice.AddInt16(kFieldSocket, sender.socket);
	notice.AddText(kFieldNick, sender.nick);
	notice.AddInt16(kFieldIcon, sender.icon);
	notice.AddText(kFieldText, with_returns(text));
	return notice;
}


/*!	A private message that comes from nobody: socket 0 and no nick. */
Transaction
server_message(const std::string& text)
{
	Transaction notice(kNoticePrivateMessage);
	notice.AddInt16(kFieldSocket, 0);
	notice.AddText(kFieldText, with_returns(text));
	return notice;
}


Transaction
broadcast(const std::string& text)
{
	Transaction notice(kNoticeBroadcast);
	notice.AddText(kFieldText, with_returns(text));
	return notice;
}


Transaction
agreement(const std::string& text)
{
	Transaction notice(kNoticeAgreement);
	notice.AddText(kFieldText, with_returns(text));
	return notice;
}


/*!	Tells the client to go on as if its user had agreed. */
Transaction
no_agreement()
{
	Transaction notice(kNoticeAgreement);
	notice.AddText(kFieldNoAgreement, "\x01");
	return notice;
}


/*!	Asks the client to leave. A notice without any field would not be noticed, hence the text. */
Transaction
polite_quit(const std::string& text)
{
	Transaction notice(kNoticePoliteQuit);
	notice.AddText(kFieldText, with_returns(text));
	return notice;
}


Transaction
user_change(const User& user)
{
	Transaction notice(kNoticeUserChange);
	notice.AddInt16(kFieldSocket, user.socket);
	notice.AddInt16(kFieldIcon, user.icon);
	notice.AddInt16(kFieldStatus, user.status);
	notice.AddText(kFieldNick, user.nick);
	return notice;
}


Transaction
user_leave(uint16_t socket)
{
	Transaction notice(kNoticeUserLeave);
	notice.AddInt16(kFieldSocket, socket);
	return notice;
}


Transaction
news_post(const std::string& text)
{
	Transaction notice(kNoticeNewsPost);
	notice.AddText(kFieldText, with_returns(text));
	return notice;
}


/*!	Says that there is a banner to be fetched, and of which format. */
Transaction
banner_notice()
{
	Transaction notice(kNoticeBanner);
	notice.AddText(kFieldBannerType, "BMPf");
	return notice;
}


/*!	Something that no client knows and every client must step over. */
Transaction
unknown_notice()
{
	Transaction notice(kUnknownNotice);
	notice.AddInt32(kUnknownField, 0x01020304);
	notice.AddText(kFieldText, "Nobody should ever see this text.");
	return notice;
}


} // namespace demo
