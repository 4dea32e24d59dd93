/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "CommandInterpreter.h"

#include "Banners.h"
#include "Notices.h"
#include "ProtocolCodes.h"
#include "Server.h"
#include "ServerOptions.h"
#include "Session.h"
#include "Text.h"
#include "Transaction.h"


namespace demo {


static const unsigned long kMaxCrowd = 5000;
static const unsigned long kMaxLongLines = 10000;
static const unsigned long kMaxStatus = 65535;

// clang-format off
const CommandInterpreter::Command CommandInterpreter::kCommands[] = {
	{"/help", "", "this list", &CommandInterpreter::_Help},
	{"/broadcast", " TEXT", "an announcement to everybody", &CommandInterpreter::_Broadcast},
	{"/message", " TEXT", "a message from the server", &CommandInterpreter::_Message},
	{"/join", " NICK", "somebody joins, or comes back", &CommandInterpreter::_Join},
	{"/leave", " NICK", "somebody leaves", &CommandInterpreter::_Leave},
	{"/rename", " NICK", "somebody takes another name", &CommandInterpreter::_Rename},
	{"/say", " NICK", "somebody says something", &CommandInterpreter::_Say},
	{"/whisper", " NICK", "somebody writes to you in private", &CommandInterpreter::_Whisper},
	{"/status", " N", "your own status, 0 to 3", &CommandInterpreter::_Status},
	{"/crowd", " N", "a crowd of that many joins; 0 sends it away", &CommandInterpreter::_Crowd},
	{"/agreement", " TEXT", "the agreement once more", &CommandInterpreter::_Agreement},
	{"/error", " TEXT", "an error", &CommandInterpreter::_Error},
	{"/banner", " KIND", "another banner; /banner ? lists the kinds", &CommandInterpreter::_Banner},
	{"/unknown", "", "messages that no client knows", &CommandInterpreter::_Unknown},
	{"/empty", "", "messages with nothing in them", &CommandInterpreter::_Empty},
	{"/odd", "", "markup, control characters, broken text", &CommandInterpreter::_Odd},
	{"/long", " N", "lines of 65,535 letters without a blank", &CommandInterpreter::_Long},
	{"/flood", " N", "lines of chat, as fast as they can be read", &CommandInterpreter::_Flood},
	{"/quit", " TEXT", "asks you to leave, politely", &CommandInterpreter::_Quit},
	{"/drop", "", "drops the line", &CommandInterpreter::_Drop},
	{"/half", "", "drops the line in the middle of a message", &CommandInterpreter::_Half},
	{"/reset", "", "drops the line with a reset", &CommandInterpreter::_Reset},
};
// clang-format on


CommandInterpreter::CommandInterpreter(Server& server)
	: fServer(server)
{
}


/*!	Does what the line asks for.
	\param request The number of the request that brought the line; errors answer it.
*/
void
CommandInterpreter::Run(Session& session, uint32_t request, const std::string& line) const
{
	std::string name;
	std::string argument;
	split_word(line, &name, &argument);
	for (const Command& command : kCommands) {
		if (to_lower(name) == command.name) {
			(this->*command.run)({session, request, argument});
			return;
		}
	}
	session.Refuse(request, "There is no command " + cut_text(name, 80) + ". Try /help.");
}


/*!	All commands, a line for each. */
std::string
CommandInterpreter::Help()
{
	std::string text = "What can be asked of the server (what stands in capitals may be left out):";
	for (const Command& command : kCommands)
		text += std::string("\n") + command.name + command.argument + " — " + command.description;
	return text;
}


void
CommandInterpreter::_Help(const Call& call) const
{
	call.session.Send(chat_text(Help()));
}


void
CommandInterpreter::_Broadcast(const Call& call) const
{
	bool isEmpty = call.argument.empty();
	fServer.SendToAll(broadcast(isEmpty ? "The kettle is on." : call.argument));
}


void
CommandInterpreter::_Message(const Call& call) const
{
	bool isEmpty = call.argument.empty();
	call.session.Send(server_message(isEmpty ? "Your tea is ready." : call.argument));
}


void
CommandInterpreter::_Join(const Call& call) const
{
	if (!fServer.Residents().Join(call.argument))
		call.session.Refuse(call.request, "The house is full.");
}


void
CommandInterpreter::_Leave(const Call& call) const
{
	if (!fServer.Residents().Leave(call.argument))
		_RefuseNobody(call);
}


void
CommandInterpreter::_Rename(const Call& call) const
{
	if (!fServer.Residents().Rename(call.argument))
		_RefuseNobody(call);
}


void
CommandInterpreter::_Say(const Call& call) const
{
	if (!fServer.Residents().Chat(call.argument))
		_RefuseNobody(call);
}


void
CommandInterpreter::_Whisper(const Call& call) const
{
	if (!fServer.Residents().Whisper(call.argument, call.session.Identity().socket))
		_RefuseNobody(call);
}


void
CommandInterpreter::_Status(const Call& call) const
{
	unsigned long status = 0;
	if (_Count(call, 0, kMaxStatus, &status))
		call.session.SetStatus(static_cast<uint16_t>(status));
}


void
CommandInterpreter::_Crowd(const Call& call) const
{
	unsigned long count = 0;
	if (_Count(call, 100, kMaxCrowd, &count))
		fServer.Residents().SetCrowd(count);
}


void
CommandInterpreter::_Agreement(const Call& call) const
{
	bool isEmpty = call.argument.empty();
	call.session.Send(agreement(isEmpty ? Session::AgreementText() : call.argument));
}


void
CommandInterpreter::_Error(const Call& call) const
{
	bool isEmpty = call.argument.empty();
	call.session.Refuse(call.request, isEmpty ? "The teapot is empty." : call.argument);
}


void
CommandInterpreter::_Banner(const Call& call) const
{
	std::string bytes;
	if (make_banner(call.argument.empty() ? "night" : call.argument, &bytes))
		fServer.ShowBanner(bytes);
	else
		call.session.Refuse(call.request, "There are these banners: " + banner_kinds() + ".");
}


/*!	Something that nobody knows, and something that few clients still show. */
void
CommandInterpreter::_Unknown(const Call& call) const
{
	call.session.Send(unknown_notice());
	call.session.Send(news_post("There are no news on this server."));
	call.session.Send(chat_text("Two messages stood before this line; only it is to be seen."));
}


/*!	Messages without a field, then messages whose text is empty: all of them mean nothing. */
void
CommandInterpreter::_Empty(const Call& call) const
{
	call.session.Send(Transaction(kNoticeChat));
	call.session.Send(Transaction(kNoticePoliteQuit));
	call.session.Send(chat_text(""));
	call.session.Send(server_message(""));
	call.session.Send(broadcast(""));
	call.session.Send(chat_text("Five empty messages stood before this line."));
}


void
CommandInterpreter::_Odd(const Call& call) const
{
	static const char* const kLines[] = {
		"<b>bold</b> <img src=\"x\"> &amp; &lt;i&gt; &nbsp;",
		"%s %d %n %08x %% 100%",
		"[*] &File &&Edit _underlined_ \\n \\0",
		"tab\there, bell\x07, backspace\x08, escape\x1b[31m, delete\x7f",
		"one\ntwo\n\nfour",
		"not UTF-8: \xff\xfe\xc3( \xe2\x82 \xf0\x9f\x98 \x80 end",
		"Zoë \xcc\x81 naïve ﬁ \xe2\x80\x8f right to left \xe2\x80\x8e עברית العربية",
	};
	for (const char* line : kLines)
		call.session.Send(chat_text(std::string("Odd:  ") + line));
	call.session.Send(chat_text(std::string("Odd:  a zero byte ") + '\0' + " in the middle"));
}


void
CommandInterpreter::_Long(const Call& call) const
{
	unsigned long lines = 0;
	if (_Count(call, 1, kMaxLongLines, &lines))
		call.session.StartFlood(lines, Transaction::kMaxFieldSize);
}


void
CommandInterpreter::_Flood(const Call& call) const
{
	unsigned long lines = 0;
	if (_Count(call, 10000, ServerOptions::kMaxFloodLines, &lines))
		call.session.StartFlood(lines, 0);
}


void
CommandInterpreter::_Quit(const Call& call) const
{
	bool isEmpty = call.argument.empty();
	call.session.AskToLeave(isEmpty ? "We are closing for tonight." : call.argument);
}


void
CommandInterpreter::_Drop(const Call& call) const
{
	call.session.Finish();
}


void
CommandInterpreter::_Half(const Call& call) const
{
	call.session.SendHalf(chat_text("The second half of this line will never arrive."));
	call.session.Finish();
}


void
CommandInterpreter::_Reset(const Call& call) const
{
	call.session.Reset();
}


void
CommandInterpreter::_RefuseNobody(const Call& call)
{
	if (call.argument.empty())
		call.session.Refuse(call.request, "There is nobody left to do that.");
	else
		call.session.Refuse(call.request,
			"Nobody here is called " + cut_text(call.argument, 80) + ".");
}


/*!	Reads a number from the line; \a usual if there is none. Refuses the request when it is no good.
*/
bool
CommandInterpreter::_Count(const Call& call, unsigned long usual, unsigned long most,
	unsigned long* _count)
{
	if (call.argument.empty()) {
		*_count = usual;
		return true;
	}
	if (parse_count(call.argument, most, _count))
		return true;
	call.session.Refuse(call.request,
		"That needs a number from 0 to " + std::to_string(most) + ".");
	return false;
}


} // namespace demo
