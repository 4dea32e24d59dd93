/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Server.h"

#include <algorithm>
#include <memory>

#include <unistd.h>

#include "Banners.h"
#include "EventLoop.h"
#include "Notices.h"
#include "ProtocolCodes.h"
#include "ServerOptions.h"
#include "Session.h"
#include "Transaction.h"
#include "User.h"


namespace demo {


static const char* const kServerName = "Lantern Café";


static std::string
welcome_text(const std::string& nick)
{
	return "Welcome to the " + std::string(kServerName) + ", " + nick
		+ "!\nThe people here answer when they are talked to, in the chat and in private."
		  "\n"
		+ CommandInterpreter::Help()
		+ "\nAny login is welcome; \"keeper\" is asked for the password \"lantern\".";
}


Server::Server(EventLoop& loop, const ServerOptions& options)
	: fLoop(loop),
	  fOptions(options),
	  fResidents(*this, loop.Timers(), options),
	  fCommands(*this),
	  fTransfers(loop.Timers())
{
	std::string bytes;
	make_banner("night", &bytes);
	fBanner = std::make_shared<TextContent>(bytes);
}


/*!	Takes a connection that has just been accepted; beyond the limit it is closed at once. */
void
Server::HandleConnection(int socket)
{
	if (fSessions.size() >= kMaxSessions) {
		close(socket);
		return;
	}
	auto session = std::make_unique<Session>(socket, *this);
	fSessions.push_back(session.get());
	fLoop.Add(std::move(session));
}


/*!	Forgets a session that ends; the others hear of it if its user had joined. */
void
Server::Remove(Session& session)
{
	fSessions.erase(std::find(fSessions.begin(), fSessions.end(), &session));
	uint16_t socket = session.Identity().socket;
	if (socket == 0)
		return;
	GiveBackSocket(socket);
	if (session.HasJoined())
		SendToAll(user_leave(socket));
}


TimerQueue&
Server::Timers() const
{
	return fLoop.Timers();
}


const char*
Server::Name()
{
	return kServerName;
}


/*!	Lets somebody in who has just joined. The newcomer hears of it as well, like everybody else. */
void
Server::Enter(Session& session)
{
	SendToAll(user_change(session.Identity()));
	if (fOptions.banner)
		session.Send(banner_notice());
	if (fOptions.welcome)
		session.Send(chat_text(welcome_text(session.Identity().nick)));
	if (fOptions.flood > 0)
		session.StartFlood(fOptions.flood, 0);
	fResidents.WakeUp();
}


void
Server::Say(const Session& speaker, const std::string& text)
{
	SendToAll(chat_line(speaker.Identity(), text));
	fResidents.HearChat(speaker.Identity(), text);
}


/*!	\return \c false when nobody has that number. */
bool
Server::SendPrivateMessage(const Session& sender, uint16_t socket, const std::string& text)
{
	return SendTo(socket, private_message(sender.Identity(), text))
		|| fResidents.HearPrivateMessage(sender.Identity(), socket, text);
}


/*!	Replaces the banner and tells everybody that there is one. */
void
Server::ShowBanner(const std::string& bytes)
{
	fBanner = std::make_shared<TextContent>(bytes);
	SendToAll(banner_notice());
}


/*!	Everybody who would be in the user list. */
size_t
Server::CountUsers() const
{
	Transaction list;
	AddUsers(&list);
	return list.CountFields();
}


/*!	Adds a record for everybody, residents first. */
void
Server::AddUsers(Transaction* _list) const
{
	fResidents.AddEntries(_list);
	for (const Session* session : fSessions) {
		if (session->HasJoined())
			_list->AddText(kFieldUserEntry, session->Identity().Entry());
	}
}


bool
Server::Describe(uint16_t socket, User* _user) const
{
	const Session* session = _FindJoined(socket);
	if (session == NULL)
		return fResidents.Describe(socket, _user);
	*_user = session->Identity();
	return true;
}


bool
Server::IsAnybodyHere() const
{
	return std::any_of(fSessions.begin(), fSessions.end(), [](const Session* session) {
		return session->HasJoined();
	});
}


void
Server::SendToAll(const Transaction& notice)
{
	for (Session* session : fSessions) {
		if (session->HasJoined())
			session->Send(notice);
	}
}


bool
Server::SendTo(uint16_t socket, const Transaction& notice)
{
	Session* session = _FindJoined(socket);
	if (session == NULL)
		return false;
	session->Send(notice);
	return true;
}


uint16_t
Server::TakeSocket()
{
	// Limits keep the users far below the numbers that there are.
	do {
		fLastSocket++;
	} while (fLastSocket == 0 || !fSocketsInUse.insert(fLastSocket).second);
	return fLastSocket;
}


void
Server::GiveBackSocket(uint16_t socket)
{
	fSocketsInUse.erase(socket);
}


Session*
Server::_FindJoined(uint16_t socket) const
{
	for (Session* session : fSessions) {
		if (session->HasJoined() && session->Identity().socket == socket)
			return session;
	}
	return NULL;
}


} // namespace demo
