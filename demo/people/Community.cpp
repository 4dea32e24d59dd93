/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Community.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "Audience.h"
#include "Notices.h"
#include "Persona.h"
#include "ProtocolCodes.h"
#include "ServerOptions.h"
#include "Text.h"
#include "Transaction.h"


namespace demo {


static const size_t kMaxResidents = ServerOptions::kMaxUsers + 10000;
// Somebody who talks without pause is answered that often at most per thinking time.
static const size_t kMaxThoughts = 32;
static const int kShortestPause = 5000;
static const int kLongestPause = 13000;

// Icons for those without a character.
static const uint16_t kFirstIcon = 128;
static const uint16_t kIconCount = 64;


Community::Community(Audience& audience, TimerQueue& timers, const ServerOptions& options)
	: fAudience(audience),
	  fTimers(timers),
	  fOptions(options)
{
	for (size_t i = 0; i < options.users; i++) {
		if (i < Persona::CountCast()) {
			const Persona& persona = Persona::Cast(i);
			_Add({0, persona.icon, persona.status, persona.nick}, &persona);
		} else
			_AddStranger(i + 1, false);
	}
}


Community::~Community()
{
	fTimers.Cancel(fLifeTimer);
}


/*!	Adds a record for everybody who is here. */
void
Community::AddEntries(Transaction* _list) const
{
	for (const Resident& resident : fResidents) {
		if (resident.isHere)
			_list->AddText(kFieldUserEntry, resident.user.Entry());
	}
}


/*!	Starts what happens unasked. For when somebody has come; it ends by itself when all have gone.
*/
void
Community::WakeUp()
{
	if (!fOptions.life || fLifeTimer != 0)
		return;

	std::uniform_int_distribution<int> pause(kShortestPause, kLongestPause);
	fLifeTimer = fTimers.Add(std::chrono::milliseconds(pause(fDice)), [this] {
		fLifeTimer = 0;
		if (!fAudience.IsAnybodyHere())
			return;
		_Live();
		WakeUp();
	});
}


/*!	Whoever is named in the text answers, and comes back for it; otherwise whose turn it is. */
void
Community::HearChat(const User& speaker, const std::string& text)
{
	if (!fOptions.answers || fThoughts == kMaxThoughts)
		return;
	Resident* resident = _Addressed(text);
	if (resident == NULL)
		resident = _NextCharacter();
	if (resident == NULL)
		return;
	if (!resident->isHere)
		_Arrive(*resident);

	// Mentioned by name now and then, so that it shows who is meant.
	std::string answer = resident->persona->AnswerTo(text, resident->spoken);
	if (resident->spoken % 2 == 0)
		answer = speaker.nick + ": " + answer;
	_Think([this, socket = resident->user.socket, answer] {
		Resident* thinker = _Find(socket);
		if (thinker != NULL && thinker->isHere)
			_Speak(*thinker, answer);
	});
	resident->spoken++;
}


/*!	\return \c false when no resident with that number is here. */
bool
Community::HearPrivateMessage(const User& sender, uint16_t socket, const std::string& text)
{
	Resident* resident = _Find(socket);
	if (resident == NULL || !resident->isHere)
		return false;
	if (!fOptions.answers || fThoughts == kMaxThoughts)
		return true;

	std::string answer = "I am new here. Talk to one of the regulars, they know more.";
	if (resident->persona != NULL)
		answer = resident->persona->WhisperTo(text, resident->whispered);
	resident->whispered++;
	_Think([this, socket, listener = sender.socket, answer] {
		Resident* thinker = _Find(socket);
		if (thinker != NULL && thinker->isHere)
			fAudience.SendTo(listener, private_message(thinker->user, answer));
	});
	return true;
}


bool
Community::Describe(uint16_t socket, User* _user) const
{
	for (const Resident& resident : fResidents) {
		if (resident.user.socket == socket && resident.isHere) {
			*_user = resident.user;
			return true;
		}
	}
	return false;
}


/*!	Brings back one of those who left; a nick that nobody of them has is a new visitor's. */
bool
Community::Join(const std::string& nick)
{
	Resident* absent = _Pick(nick, false);
	if (absent != NULL) {
		_Arrive(*absent);
		return true;
	}
	if (fResidents.size() >= kMaxResidents)
		return false;

	fVisitors++;
	User visitor;
	visitor.icon = static_cast<uint16_t>(kFirstIcon + fVisitors % kIconCount);
	visitor.nick = cut_text(nick, kMaxNickSize);
	if (nick.empty())
		visitor.nick = "Visitor " + std::to_string(fVisitors);
	_Add(visitor, NULL);
	_Arrive(fResidents.back());
	return true;
}


bool
Community::Leave(const std::string& nick)
{
	Resident* resident = _Pick(nick, true);
	if (resident == NULL)
		return false;
	_Depart(*resident);
	return true;
}


bool
Community::Rename(const std::string& nick)
{
	Resident* resident = _Pick(nick, true);
	if (resident == NULL)
		return false;
	_TakeOtherName(*resident);
	return true;
}


bool
Community::Chat(const std::string& nick)
{
	Resident* resident = nick.empty() ? _NextCharacter() : _Pick(nick, true);
	if (resident == NULL)
		return false;
	std::string text = "I am only passing through.";
	if (resident->persona != NULL)
		text = resident->persona->Remark(resident->spoken++);
	_Speak(*resident, text);
	return true;
}


/*!	Opens a private conversation with the listener. */
bool
Community::Whisper(const std::string& nick, uint16_t listener)
{
	Resident* resident = nick.empty() ? _NextCharacter() : _Pick(nick, true);
	if (resident == NULL)
		return false;
	std::string text = "Do we know each other?";
	if (resident->persona != NULL)
		text = resident->persona->whispers[resident->whispered++ % 2];
	return fAudience.SendTo(listener, private_message(resident->user, text));
}


/*!	Makes the crowd that many. Everybody hears of each one who comes or goes. */
void
Community::SetCrowd(size_t count)
{
	while (fCrowd < count && fResidents.size() < kMaxResidents) {
		_AddStranger(fResidents.size() + 1, true);
		fCrowd++;
		fAudience.SendToAll(user_change(fResidents.back().user));
	}
	for (size_t i = fResidents.size(); i > 0 && fCrowd > count; i--) {
		if (fResidents[i - 1].isCrowd)
			_Depart(fResidents[i - 1]);
	}
}


void
Community::_Add(const User& looks, const Persona* persona)
{
	Resident resident = {looks, persona, true, false, 0, 0};
	resident.user.socket = fAudience.TakeSocket();
	fResidents.push_back(resident);
}


void
Community::_AddStranger(size_t number, bool isCrowd)
{
	static const char* const kNames[] = {"Guest ", "Гость ", "おきゃく ", "Επισκέπτης "};
	User stranger;
	stranger.icon = static_cast<uint16_t>(kFirstIcon + number % kIconCount);
	stranger.status = static_cast<uint16_t>(number % 7 == 0 ? User::kAway : 0);
	stranger.nick = kNames[number % std::size(kNames)] + std::to_string(number);
	_Add(stranger, NULL);
	fResidents.back().isCrowd = isCrowd;
}


Community::Resident*
Community::_Find(uint16_t socket)
{
	for (Resident& resident : fResidents) {
		if (resident.user.socket == socket)
			return &resident;
	}
	return NULL;
}


/*!	The one with that nick, else the first whose nick holds it, else, without one, the next in turn.
*/
Community::Resident*
Community::_Pick(const std::string& nick, bool isHere)
{
	std::string wanted = to_lower(nick);
	Resident* similar = NULL;
	for (size_t i = 0; i < fResidents.size(); i++) {
		Resident& resident = fResidents[(fNextInTurn + i) % fResidents.size()];
		if (resident.isHere != isHere)
			continue;
		std::string own = to_lower(resident.user.nick);
		if (nick.empty()) {
			fNextInTurn = (fNextInTurn + i + 1) % fResidents.size();
			return &resident;
		}
		if (own == wanted)
			return &resident;
		if (similar == NULL && own.find(wanted) != std::string::npos)
			similar = &resident;
	}
	return similar;
}


/*!	The next in turn of those who have a character and therefore something to say. */
Community::Resident*
Community::_NextCharacter()
{
	size_t cast = std::min(fResidents.size(), Persona::CountCast());
	for (size_t i = 0; i < cast; i++) {
		Resident& resident = fResidents[fNextCharacter % cast];
		fNextCharacter = (fNextCharacter + 1) % cast;
		if (resident.isHere && resident.persona != NULL)
			return &resident;
	}
	return NULL;
}


/*!	Whose name the text holds, here or not; the usual one counts also while going by another. */
Community::Resident*
Community::_Addressed(const std::string& text)
{
	std::string plain = to_lower(text);
	size_t cast = std::min(fResidents.size(), Persona::CountCast());
	for (size_t i = 0; i < cast; i++) {
		Resident& resident = fResidents[i];
		if (resident.persona == NULL)
			continue;
		if (contains_word(plain, to_lower(resident.persona->nick))
			|| contains_word(plain, to_lower(resident.user.nick)))
			return &resident;
	}
	return NULL;
}


void
Community::_Arrive(Resident& resident)
{
	resident.isHere = true;
	fAudience.SendToAll(user_change(resident.user));
}


/*!	Those with a character may come back; the others are forgotten, so the record may be gone. */
void
Community::_Depart(Resident& resident)
{
	uint16_t socket = resident.user.socket;
	resident.isHere = false;
	if (resident.persona == NULL) {
		if (resident.isCrowd)
			fCrowd--;
		fAudience.GiveBackSocket(socket);
		fResidents.erase(fResidents.begin() + (&resident - fResidents.data()));
	}
	fAudience.SendToAll(user_leave(socket));
}


void
Community::_TakeOtherName(Resident& resident)
{
	std::string& nick = resident.user.nick;
	if (resident.persona != NULL) {
		bool isUsual = nick == resident.persona->nick;
		nick = isUsual ? resident.persona->otherNick : resident.persona->nick;
	} else
		nick = cut_text("Someone, once " + nick, kMaxNickSize);
	fAudience.SendToAll(user_change(resident.user));
}


void
Community::_ChangeStatus(Resident& resident)
{
	resident.user.status ^= User::kAway;
	fAudience.SendToAll(user_change(resident.user));
}


void
Community::_Speak(const Resident& resident, const std::string& text)
{
	fAudience.SendToAll(chat_line(resident.user, text));
}


void
Community::_Think(TimerQueue::Action action)
{
	fThoughts++;
	fTimers.Add(std::chrono::milliseconds(fOptions.answerDelay),
		[this, action = std::move(action)] {
			fThoughts--;
			action();
		});
}


/*!	One of the small things that happen unasked. */
void
Community::_Live()
{
	Resident* resident = _NextCharacter();
	switch (fDice() % 10) {
		case 0:
			Leave("");
			break;
		case 1:
			if (resident != NULL)
				_TakeOtherName(*resident);
			break;
		case 2:
			if (resident != NULL)
				_ChangeStatus(*resident);
			break;
		case 3:
			fAudience.SendToAll(unknown_notice());
			break;
		case 4:
		case 5:
			// Nobody is missed for long.
			resident = _Pick("", false);
			if (resident != NULL)
				_Arrive(*resident);
			break;
		default:
			Chat("");
			break;
	}
}


} // namespace demo
