/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_SERVER_H
#define DEMO_SERVER_H


#include "Audience.h"
#include "CommandInterpreter.h"
#include "Community.h"
#include "FileTree.h"
#include "TransferDesk.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>


namespace demo {


class EventLoop;
class Session;
class TimerQueue;
class Transaction;
struct ServerOptions;
struct User;


/*!	The meeting place: knows the sessions of those who are connected and the residents, and passes
	on what one says to the others. Borrows the sessions, which belong to the event loop and must
	be gone before the server is. Belongs to the event loop's thread.
*/
class Server : public Audience {
public:
	// How many may be connected at a time.
	static constexpr size_t kMaxSessions = 256;

	Server(EventLoop& loop, const ServerOptions& options);

	void HandleConnection(int socket);
	void Remove(Session& session);

	const ServerOptions& Options() const { return fOptions; }
	TimerQueue& Timers() const;
	Community& Residents() { return fResidents; }
	const CommandInterpreter& Commands() const { return fCommands; }
	FileTree& Files() { return fFiles; }
	TransferDesk& Transfers() { return fTransfers; }
	const ContentReference& Banner() const { return fBanner; }
	static const char* Name();

	void Enter(Session& session);
	void Say(const Session& speaker, const std::string& text);
	bool SendPrivateMessage(const Session& sender, uint16_t socket, const std::string& text);
	void ShowBanner(const std::string& bytes);
	void AddUsers(Transaction* _list) const;
	size_t CountUsers() const;
	bool Describe(uint16_t socket, User* _user) const;

	bool IsAnybodyHere() const override;
	void SendToAll(const Transaction& notice) override;
	bool SendTo(uint16_t socket, const Transaction& notice) override;
	uint16_t TakeSocket() override;
	void GiveBackSocket(uint16_t socket) override;

private:
	Session* _FindJoined(uint16_t socket) const;

	EventLoop& fLoop;
	const ServerOptions& fOptions;
	std::set<uint16_t> fSocketsInUse;
	uint16_t fLastSocket = 0;
	std::vector<Session*> fSessions;
	Community fResidents;
	CommandInterpreter fCommands;
	FileTree fFiles;
	TransferDesk fTransfers;
	ContentReference fBanner;
};


} // namespace demo


#endif // DEMO_SERVER_H
