/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <gtest/gtest.h>

#include "ServerOptions.h"


using demo::CommandLine;
using demo::TrackerMode;


static bool
parse(std::vector<const char*> arguments, CommandLine* _line, std::string* _error)
{
	arguments.insert(arguments.begin(), "palimbra-demo");
	return _line->Parse(static_cast<int>(arguments.size()), arguments.data(), _error);
}


TEST(CommandLineTest, NothingGiven_TheUsualServer)
{
	CommandLine line;
	std::string error;
	ASSERT_TRUE(parse({}, &line, &error));
	EXPECT_EQ(line.port, 5500);
	EXPECT_FALSE(line.help);
	EXPECT_TRUE(line.server.agreement);
	EXPECT_TRUE(line.server.welcome);
	EXPECT_TRUE(line.server.life);
	EXPECT_TRUE(line.server.answers);
	EXPECT_FALSE(line.server.silent);
	EXPECT_TRUE(line.server.banner);
	EXPECT_EQ(line.server.trackerPort, 5498);
	EXPECT_EQ(line.server.tracker, TrackerMode::kUsual);
	EXPECT_EQ(line.server.users, 11u);
	EXPECT_EQ(line.server.flood, 0u);
}


TEST(CommandLineTest, Everything_IsTaken)
{
	CommandLine line;
	std::string error;
	ASSERT_TRUE(parse({"--port", "0", "--no-agreement", "--no-welcome", "--still", "--mute",
						  "--silent", "--no-banner", "--tracker", "many", "--tracker-port", "77",
						  "--users", "20000", "--answer-delay", "5", "--flood", "9"},
		&line, &error));
	EXPECT_EQ(line.port, 0);
	EXPECT_FALSE(line.server.agreement);
	EXPECT_FALSE(line.server.welcome);
	EXPECT_FALSE(line.server.life);
	EXPECT_FALSE(line.server.answers);
	EXPECT_TRUE(line.server.silent);
	EXPECT_FALSE(line.server.banner);
	EXPECT_EQ(line.server.trackerPort, 77);
	EXPECT_EQ(line.server.tracker, TrackerMode::kMany);
	EXPECT_EQ(line.server.users, 20000u);
	EXPECT_EQ(line.server.answerDelay, 5u);
	EXPECT_EQ(line.server.flood, 9u);
}


TEST(CommandLineTest, AnotherPort_MovesTheTrackerToo)
{
	CommandLine line;
	std::string error;
	ASSERT_TRUE(parse({"--port", "7000"}, &line, &error));
	EXPECT_EQ(line.server.trackerPort, 6998);
	CommandLine free;
	ASSERT_TRUE(parse({"--port", "0"}, &free, &error));
	EXPECT_EQ(free.server.trackerPort, 0);
}


TEST(CommandLineTest, NotUnderstood_SaysWhy)
{
	struct {
		std::vector<const char*> arguments;
		const char* error;
	} cases[] = {
		{{"--teapot"}, "Unknown option --teapot."},
		{{"--port"}, "--port needs a number from 0 to 65534."},
		{{"--port", "65535"}, "--port needs a number from 0 to 65534."},
		{{"--tracker", "loud"},
			"--tracker needs one of usual, empty, one, many, truncated, wrong, silent."},
		{{"--users", "-1"}, "--users needs a number from 0 to 20000."},
		{{"--users", "20001"}, "--users needs a number from 0 to 20000."},
	};
	for (const auto& entry : cases) {
		SCOPED_TRACE(entry.error);
		CommandLine line;
		std::string error;
		EXPECT_FALSE(parse(entry.arguments, &line, &error));
		EXPECT_EQ(error, entry.error);
	}
}


TEST(CommandLineTest, Usage_NamesEveryOption)
{
	std::string usage = CommandLine::Usage();
	for (const char* option : {"--port N", "--users N", "--answer-delay N", "--flood N", "--silent",
			 "--still", "--mute", "--tracker-port N", "--tracker MODE", "--no-banner",
			 "--no-agreement", "--no-welcome", "--help"})
		EXPECT_NE(usage.find(option), std::string::npos) << option;
}
