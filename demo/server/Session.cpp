/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Session.h"

#include <algorithm>
#include <cstring>

#include "Notices.h"
#include "ProtocolCodes.h"
#include "Server.h"
#include "ServerOptions.h"
#include "Text.h"
#include "TimerQueue.h"
#include "Transaction.h"


namespace demo {


static const int kTimeToLogIn = 60000;
static const int kTimeToLeave = 10000;

static const char* const kKeeperLogin = "keeper";
static const char* const kKeeperPassword = "lantern";

static const char* const kNoNick = "Nameless";
static const char* const kNotJoined = "Please accept the agreement first.";


/*!	Logins and passwords travel with every bit turned over. */
static std::string
decode_credential(std::string bytes)
{
	for (char& byte : bytes)
		byte = static_cast<char>(~byte);
	return bytes;
}


Session::Session(int socket, Server& server)
	: StreamChannel(socket, server.Timers()),
	  fServer(server),
	  fFileRequests(server, *this)
{
	if (!server.Options().silent)
		_EndAfter(kTimeToLogIn);
}


Session::~Session()
{
	fServer.Timers().Cancel(fEndTimer);
	fServer.Remove(*this);
}


/*!	Queues something that the server says of its own accord, under a number of this connection. */
void
Session::Send(const Transaction& notice)
{
	Transaction numbered = notice;
	numbered.SetId(++fLastId);
	Reply(numbered);
}


/*!	Queues an answer, which carries the number of its request already. */
void
Session::Reply(const Transaction& reply)
{
	std::vector<uint8_t> bytes = reply.Flatten();
	Write(bytes.data(), bytes.size());
}


void
Session::Refuse(uint32_t request, const std::string& text)
{
	Reply(Transaction::ErrorReply(request, text));
}


/*!	\param status The status word that everybody gets to see beside the user's nick. */
void
Session::SetStatus(uint16_t status)
{
	fUser.status = status;
	fServer.SendToAll(user_change(fUser));
}


/*!	Leaves the client waiting for the rest; nothing sensible can follow on this connection. */
void
Session::SendHalf(const Transaction& notice)
{
	std::vector<uint8_t> bytes = notice.Flatten();
	Write(bytes.data(), bytes.size() / 2);
}


/*!	Whoever does not go within some seconds is put out. */
void
Session::AskToLeave(const std::string& text)
{
	Send(polite_quit(text));
	_EndAfter(kTimeToLeave);
}


/*!	\param lineSize As in \c FloodSource::Start(). A flood that is still running is replaced. */
void
Session::StartFlood(unsigned long lines, size_t lineSize)
{
	fFlood.Start(lines, lineSize);
}


std::string
Session::AgreementText()
{
	return std::string("The ") + Server::Name()
		+ "\n\nCome in, there is always a free chair.\n\n"
		  "1. Be kind. Everybody here is made of text and bruises easily.\n"
		  "2. Whoever empties the teapot fills it again — "
		  "чай, お茶 and τσάι are all in the left cupboard.\n"
		  "3. <b>Markup</b>, &ampersands and 100%s signs are welcome; nobody will interpret them.\n"
		  "4. Nothing that you say leaves this machine: the house listens on 127.0.0.1 only.\n\n"
		  "This house is a demonstration. Type /help in the chat to see what can be asked of it.\n"
		  "Any login is welcome; the login \"keeper\" is asked for the password \"lantern\".\n\n"
		  "If you agree, the lantern by the door is yours for the evening.";
}


size_t
Session::HandleInput(const uint8_t* bytes, size_t size)
{
	if (fServer.Options().silent)
		return size;
	if (fState == kHandshaking)
		return _HandleHandshake(bytes, size);

	Transaction request;
	size_t consumed = 0;
	switch (Transaction::Parse(bytes, size, &request, &consumed)) {
		case Transaction::kIncomplete:
			return 0;
		case Transaction::kTooLarge:
			Refuse(0, "That was more than this server reads at a time.");
			Finish();
			return size;
		case Transaction::kComplete:
			// Nothing was asked, so that there is nothing to be made of an answer.
			if (!request.IsReply())
				_HandleRequest(request);
			break;
	}
	return consumed;
}


void
Session::RefillOutput()
{
	while (fFlood.HasMore() && CountQueued() < kRefillBelow)
		Send(fFlood.Next());
}


size_t
Session::_HandleHandshake(const uint8_t* bytes, size_t size)
{
	// A stranger is recognized by the first byte that differs, however few there are.
	if (memcmp(bytes, kHandshake, std::min(size, kHandshakeMagicSize)) != 0) {
		Write(kHandshakeRefusal, sizeof(kHandshakeRefusal));
		Finish();
		return size;
	}
	if (size < sizeof(kHandshake))
		return 0;

	Write(kHandshakeReply, sizeof(kHandshakeReply));
	fState = kConnected;
	return sizeof(kHandshake);
}


void
Session::_HandleRequest(const Transaction& request)
{
	if (fState == kConnected && request.Type() != kRequestLogin) {
		Refuse(request.Id(), "Please log in first.");
		return;
	}
	switch (request.Type()) {
		case kRequestLogin:
			_HandleLogin(request);
			break;
		case kRequestAgreed:
			_HandleAgreed(request);
			break;
		case kRequestChat:
			_HandleChat(request);
			break;
		case kRequestPrivateMessage:
			_HandlePrivateMessage(request);
			break;
		case kRequestUserList:
			_HandleUserList(request);
			break;
		case kRequestUserInfo:
			_HandleUserInfo(request);
			break;
		case kRequestUserChange:
			_HandleUserChange(request);
			break;
		default:
			if (fState == kJoined && fFileRequests.Handle(request))
				break;
			Refuse(request.Id(),
				"This server does not know requests of type " + std::to_string(request.Type())
					+ ".");
			break;
	}
}


void
Session::_HandleLogin(const Transaction& request)
{
	if (fState != kConnected) {
		Refuse(request.Id(), "You are logged in already.");
		return;
	}

	std::string login;
	std::string password;
	request.FindText(kFieldLogin, &login);
	request.FindText(kFieldPassword, &password);
	fIsKeeper = decode_credential(login) == kKeeperLogin;
	if (fIsKeeper && decode_credential(password) != kKeeperPassword) {
		Refuse(request.Id(), "The password for \"keeper\" is wrong.");
		Finish();
		return;
	}

	fServer.Timers().Cancel(fEndTimer);
	fState = kReadingAgreement;
	fUser.socket = fServer.TakeSocket();
	fUser.status = fIsKeeper ? User::kKeeper : 0;
	fUser.nick = kNoNick;
	_SetIdentity(request);

	Transaction reply = Transaction::Reply(request.Id());
	reply.AddInt16(kFieldVersion, kServerVersion);
	reply.AddText(kFieldServerName, Server::Name());
	Reply(reply);
	Send(fServer.Options().agreement ? agreement(AgreementText()) : no_agreement());
}


void
Session::_HandleAgreed(const Transaction& request)
{
	bool isNew = fState == kReadingAgreement;
	fState = kJoined;
	_SetIdentity(request);
	Reply(Transaction::Reply(request.Id()));
	if (isNew)
		fServer.Enter(*this);
	else
		fServer.SendToAll(user_change(fUser));
}


void
Session::_HandleChat(const Transaction& request)
{
	if (fState != kJoined) {
		Refuse(request.Id(), kNotJoined);
		return;
	}
	std::string text;
	request.FindText(kFieldText, &text);
	if (text.empty())
		return;
	if (text.front() == '/')
		fServer.Commands().Run(*this, request.Id(), text);
	else
		fServer.Say(*this, text);
}


void
Session::_HandlePrivateMessage(const Transaction& request)
{
	if (fState != kJoined) {
		Refuse(request.Id(), kNotJoined);
		return;
	}
	uint32_t socket = 0;
	std::string text;
	request.FindInt(kFieldSocket, &socket);
	request.FindText(kFieldText, &text);
	if (!fServer.SendPrivateMessage(*this, static_cast<uint16_t>(socket), text)) {
		Refuse(request.Id(), "There is nobody with the number " + std::to_string(socket) + ".");
		return;
	}
	Reply(Transaction::Reply(request.Id()));
}


void
Session::_HandleUserList(const Transaction& request)
{
	Transaction reply = Transaction::Reply(request.Id());
	fServer.AddUsers(&reply);
	Reply(reply);
}


void
Session::_HandleUserInfo(const Transaction& request)
{
	uint32_t socket = 0;
	request.FindInt(kFieldSocket, &socket);
	User user;
	if (!fServer.Describe(static_cast<uint16_t>(socket), &user)) {
		Refuse(request.Id(), "There is nobody with the number " + std::to_string(socket) + ".");
		return;
	}
	Transaction reply = Transaction::Reply(request.Id());
	reply.AddText(kFieldNick, user.nick);
	reply.AddText(kFieldText,
		"Nick: " + user.nick + "\rIcon: " + std::to_string(user.icon)
			+ "\rStatus: " + std::to_string(user.status));
	Reply(reply);
}


/*!	There is no answer to this request other than the news that everybody gets. */
void
Session::_HandleUserChange(const Transaction& request)
{
	_SetIdentity(request);
	if (fState == kJoined)
		fServer.SendToAll(user_change(fUser));
}


/*!	Takes the nick and the icon that come with a request; without them it keeps its own. */
void
Session::_SetIdentity(const Transaction& request)
{
	std::string nick;
	request.FindText(kFieldNick, &nick);
	if (!nick.empty())
		fUser.nick = cut_text(nick, kMaxNickSize);
	uint32_t icon = 0;
	if (request.FindInt(kFieldIcon, &icon))
		fUser.icon = static_cast<uint16_t>(icon);
}


void
Session::_EndAfter(int milliseconds)
{
	TimerQueue& timers = fServer.Timers();
	timers.Cancel(fEndTimer);
	fEndTimer = timers.Add(std::chrono::milliseconds(milliseconds), [this] {
		Drop();
	});
}


} // namespace demo
