/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_COMMAND_INTERPRETER_H
#define DEMO_COMMAND_INTERPRETER_H


#include <cstdint>
#include <string>


namespace demo {


class Server;
class Session;


/*!	What a client's user can ask of the server by typing a line with a slash into the chat.
	Borrows the server. Belongs to the event loop's thread.
*/
class CommandInterpreter {
public:
	explicit CommandInterpreter(Server& server);

	void Run(Session& session, uint32_t request, const std::string& line) const;
	static std::string Help();

private:
	// One line of the chat, taken apart.
	struct Call {
		Session& session;
		uint32_t request;
		std::string argument;
	};
	struct Command {
		const char* name;
		const char* argument;
		const char* description;
		void (CommandInterpreter::*run)(const Call& call) const;
	};
	static const Command kCommands[];

	void _Help(const Call& call) const;
	void _Broadcast(const Call& call) const;
	void _Message(const Call& call) const;
	void _Join(const Call& call) const;
	void _Leave(const Call& call) const;
	void _Rename(const Call& call) const;
	void _Say(const Call& call) const;
	void _Whisper(const Call& call) const;
	void _Status(const Call& call) const;
	void _Crowd(const Call& call) const;
	void _Agreement(const Call& call) const;
	void _Error(const Call& call) const;
	void _Banner(const Call& call) const;
	void _Unknown(const Call& call) const;
	void _Empty(const Call& call) const;
	void _Odd(const Call& call) const;
	void _Long(const Call& call) const;
	void _Flood(const Call& call) const;
	void _Quit(const Call& call) const;
	void _Drop(const Call& call) const;
	void _Half(const Call& call) const;
	void _Reset(const Call& call) const;

	static void _RefuseNobody(const Call& call);
	static bool _Count(const Call& call, unsigned long usual, unsigned long most,
		unsigned long* _count);

	Server& fServer;
};


} // namespace demo


#endif // DEMO_COMMAND_INTERPRETER_H
