/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ServerOptions.h"

#include <cstring>

#include "Text.h"


namespace demo {


struct Switch {
	const char* name;
	bool ServerOptions::*option;
	bool value;
	const char* description;
};

static const Switch kSwitches[] = {
	{"--no-agreement", &ServerOptions::agreement, false, "tell newcomers that there is none"},
	{"--no-welcome", &ServerOptions::welcome, false, "do not greet newcomers in the chat"},
	{"--no-banner", &ServerOptions::banner, false, "do not announce the banner"},
	{"--still", &ServerOptions::life, false, "residents neither come nor go nor talk unasked"},
	{"--mute", &ServerOptions::answers, false, "residents do not answer"},
	{"--silent", &ServerOptions::silent, true, "accept connections and never say a word"},
};


struct CountOption {
	const char* name;
	unsigned long ServerOptions::*option;
	unsigned long most;
	const char* description;
};

static const CountOption kCountOptions[] = {
	{"--users", &ServerOptions::users, ServerOptions::kMaxUsers, "residents in the user list"},
	{"--answer-delay", &ServerOptions::answerDelay, 60000, "milliseconds before they answer"},
	{"--flood", &ServerOptions::flood, ServerOptions::kMaxFloodLines, "chat lines for a newcomer"},
};


static const struct {
	const char* name;
	TrackerMode mode;
} kTrackerModes[] = {
	{"usual", TrackerMode::kUsual},
	{"empty", TrackerMode::kEmpty},
	{"one", TrackerMode::kOne},
	{"many", TrackerMode::kMany},
	{"truncated", TrackerMode::kTruncated},
	{"wrong", TrackerMode::kWrongMagic},
	{"silent", TrackerMode::kSilent},
};


static bool
find_tracker_mode(const char* argument, TrackerMode* _mode)
{
	for (const auto& entry : kTrackerModes) {
		if (strcmp(argument, entry.name) == 0) {
			*_mode = entry.mode;
			return true;
		}
	}
	return false;
}


static std::string
tracker_mode_names()
{
	std::string names;
	for (const auto& entry : kTrackerModes)
		names += (names.empty() ? "" : ", ") + std::string(entry.name);
	return names;
}


static bool
find_switch(const char* argument, ServerOptions* _options)
{
	for (const Switch& entry : kSwitches) {
		if (strcmp(argument, entry.name) == 0) {
			_options->*entry.option = entry.value;
			return true;
		}
	}
	return false;
}


static const CountOption*
find_count_option(const char* argument)
{
	for (const CountOption& entry : kCountOptions) {
		if (strcmp(argument, entry.name) == 0)
			return &entry;
	}
	return NULL;
}


/*!	Reads the arguments behind the program's name.
	\return \c false with a sentence in \a _error when one of them is not understood.
*/
bool
CommandLine::Parse(int argumentCount, const char* const* arguments, std::string* _error)
{
	bool isTrackerPortGiven = false;
	for (int i = 1; i < argumentCount; i++) {
		std::string name = arguments[i];
		if (name == "--help" || name == "-h") {
			help = true;
			continue;
		}
		if (find_switch(arguments[i], &server))
			continue;

		const char* value = i + 1 < argumentCount ? arguments[i + 1] : "";
		if (!_ParseValue(arguments[i], value, _error))
			return false;
		isTrackerPortGiven |= name == "--tracker-port";
		i++;
	}

	// Where trackers of the same house usually are.
	if (!isTrackerPortGiven && port > 2)
		server.trackerPort = static_cast<uint16_t>(port - 2);
	return true;
}


/*!	An option that has a value. */
bool
CommandLine::_ParseValue(const char* name, const char* value, std::string* _error)
{
	if (strcmp(name, "--tracker") == 0) {
		if (find_tracker_mode(value, &server.tracker))
			return true;
		*_error = "--tracker needs one of " + tracker_mode_names() + ".";
		return false;
	}

	bool isPort = strcmp(name, "--port") == 0;
	bool isTrackerPort = strcmp(name, "--tracker-port") == 0;
	const CountOption* counted = find_count_option(name);
	if (counted == NULL && !isPort && !isTrackerPort) {
		*_error = "Unknown option " + std::string(name) + ".";
		return false;
	}

	unsigned long most = counted != NULL ? counted->most : 65534;
	unsigned long count = 0;
	if (!parse_count(value, most, &count)) {
		*_error = std::string(name) + " needs a number from 0 to " + std::to_string(most) + ".";
		return false;
	}
	if (counted != NULL)
		server.*counted->option = count;
	else if (isPort)
		port = static_cast<uint16_t>(count);
	else
		server.trackerPort = static_cast<uint16_t>(count);
	return true;
}


static std::string
usage_line(std::string name, const char* description)
{
	name.resize(20, ' ');
	return "  " + name + description + "\n";
}


std::string
CommandLine::Usage()
{
	std::string text = "A small Hotline server to try the client with, on 127.0.0.1 only.\n\n";
	text += usage_line("--port N", "where to listen, 5500 if not given, 0 for any free port");
	text += usage_line("--tracker-port N", "where the tracker listens, 5498 if not given");
	text += usage_line("--tracker MODE", ("one of " + tracker_mode_names()).c_str());
	for (const CountOption& entry : kCountOptions)
		text += usage_line(std::string(entry.name) + " N", entry.description);
	for (const Switch& entry : kSwitches)
		text += usage_line(entry.name, entry.description);
	text += usage_line("--help", "this text");
	return text;
}


} // namespace demo
