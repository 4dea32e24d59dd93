/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_COMMUNITY_H
#define DEMO_COMMUNITY_H


#include "TimerQueue.h"
#include "User.h"

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>


namespace demo {


class Audience;
class Transaction;
struct Persona;
struct ServerOptions;


/*!	The residents: who of them is here, what they answer, and what they do unasked, which is only
	while somebody is there to see it. Belongs to the event loop's thread.
*/
class Community {
public:
	Community(Audience& audience, TimerQueue& timers, const ServerOptions& options);
	~Community();

	void AddEntries(Transaction* _list) const;
	void WakeUp();

	void HearChat(const User& speaker, const std::string& text);
	bool HearPrivateMessage(const User& sender, uint16_t socket, const std::string& text);
	bool Describe(uint16_t socket, User* _user) const;

	// Whom a nick, or a part of it, names; an empty one names whoever is next in turn.
	// All of them return false when there is nobody of that name to do it.
	bool Join(const std::string& nick);
	bool Leave(const std::string& nick);
	bool Rename(const std::string& nick);
	bool Chat(const std::string& nick);
	bool Whisper(const std::string& nick, uint16_t listener);
	void SetCrowd(size_t count);

private:
	struct Resident {
		User user;
		// NULL for the many who have no character.
		const Persona* persona;
		bool isHere;
		bool isCrowd;
		// How often, so that nobody repeats itself.
		size_t spoken;
		size_t whispered;
	};

	void _Add(const User& looks, const Persona* persona);
	void _AddStranger(size_t number, bool isCrowd);
	Resident* _Find(uint16_t socket);
	Resident* _Pick(const std::string& nick, bool isHere);
	Resident* _NextCharacter();
	Resident* _Addressed(const std::string& text);

	void _Arrive(Resident& resident);
	void _Depart(Resident& resident);
	void _TakeOtherName(Resident& resident);
	void _ChangeStatus(Resident& resident);
	void _Speak(const Resident& resident, const std::string& text);
	void _Think(TimerQueue::Action action);
	void _Live();

	Audience& fAudience;
	TimerQueue& fTimers;
	const ServerOptions& fOptions;

	// Those with a character stand first and stay, here or not.
	std::vector<Resident> fResidents;
	size_t fNextInTurn = 0;
	size_t fNextCharacter = 0;
	size_t fVisitors = 0;
	size_t fCrowd = 0;
	size_t fThoughts = 0;
	uint64_t fLifeTimer = 0;
	std::minstd_rand fDice;
};


} // namespace demo


#endif // DEMO_COMMUNITY_H
