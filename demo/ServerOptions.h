/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_SERVER_OPTIONS_H
#define DEMO_SERVER_OPTIONS_H


#include <cstdint>
#include <string>


namespace demo {


/*!	What the tracker says to those who ask it. */
enum class TrackerMode { kUsual, kEmpty, kOne, kMany, kTruncated, kWrongMagic, kSilent };


/*!	How the server behaves. A value, fixed once the server has started. */
struct ServerOptions {
	static constexpr unsigned long kMaxUsers = 20000;
	static constexpr unsigned long kMaxFloodLines = 100000000;

	// Shows an agreement; otherwise newcomers are told that there is none.
	bool agreement = true;
	// Greets newcomers in the chat, with the list of commands.
	bool welcome = true;
	// Announces a banner to newcomers.
	bool banner = true;
	// Accepts connections and never says a word.
	bool silent = false;
	// Residents come, go and talk unasked.
	bool life = true;
	// Residents answer chat and private messages.
	bool answers = true;
	// Residents in the user list at the start.
	unsigned long users = 11;
	// How long residents think before they answer, in milliseconds.
	unsigned long answerDelay = 1200;
	// Lines of chat that everybody who joins is flooded with.
	unsigned long flood = 0;
	TrackerMode tracker = TrackerMode::kUsual;
	// The tracker's port; 0 for any that is free.
	uint16_t trackerPort = 0;
};


/*!	What the command line asks for. */
struct CommandLine {
	ServerOptions server;
	// The control connection's port; 0 for any that is free. Files travel on the next one.
	uint16_t port = 5500;
	bool help = false;

	bool Parse(int argumentCount, const char* const* arguments, std::string* _error);
	static std::string Usage();

private:
	bool _ParseValue(const char* name, const char* value, std::string* _error);
};


} // namespace demo


#endif // DEMO_SERVER_OPTIONS_H
