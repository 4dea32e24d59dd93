/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <csignal>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "DemoServer.h"
#include "WaitFor.h"


// In seconds, for a session, which takes less than one on an idle machine. It gives up by itself
// before that, and says why.
static const int kPatience = 90;


/*!	Some seeds in a row, against a server of their own. */
class ShakenSessionTest : public testing::TestWithParam<unsigned> {
protected:
	ShakenSessionTest()
		: fServer(_Options())
	{
	}

	void SetUp() override { ASSERT_TRUE(fServer.Start()); }

	// Returns what the session said, if it did not end with status 0.
	std::string _Run(unsigned seed)
	{
		const std::string output = testing::TempDir() + "shaken_session_" + std::to_string(seed);
		std::string words[] = {SESSION_PROGRAM, std::to_string(seed),
			std::to_string(fServer.Port()), std::to_string(fServer.TrackerPort())};
		char* arguments[] = {words[0].data(), words[1].data(), words[2].data(), words[3].data(),
			NULL};

		posix_spawn_file_actions_t actions;
		posix_spawn_file_actions_init(&actions);
		posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, output.c_str(),
			O_WRONLY | O_CREAT | O_TRUNC, 0600);
		pid_t process = -1;
		EXPECT_EQ(0, posix_spawn(&process, words[0].c_str(), &actions, NULL, arguments, environ));
		posix_spawn_file_actions_destroy(&actions);

		int status = 0;
		const bool hasEnded = WaitFor(
			[&] {
				return waitpid(process, &status, WNOHANG) == process;
			},
			kPatience);
		if (!hasEnded) {
			kill(process, SIGKILL);
			waitpid(process, &status, 0);
		}
		std::string said = _Read(output);
		unlink(output.c_str());
		if (hasEnded && status == 0)
			return std::string();
		return "status " + std::to_string(status) + (hasEnded ? "\n" : ", killed\n") + said;
	}

private:
	static demo::ServerOptions _Options()
	{
		demo::ServerOptions options;
		options.answerDelay = 0;
		options.life = false;
		return options;
	}

	static std::string _Read(const std::string& path)
	{
		std::string content;
		FILE* file = fopen(path.c_str(), "r");
		char buffer[4096];
		for (size_t size = 1; file != NULL && size > 0; content.append(buffer, size))
			size = fread(buffer, 1, sizeof(buffer), file);
		if (file != NULL)
			fclose(file);
		return content;
	}

	demo::DemoServer fServer;
};


TEST_P(ShakenSessionTest, EverySession_EndsAsItShall)
{
	const unsigned first = GetParam() * SEEDS_PER_CASE + 1;
	for (unsigned seed = first; seed < first + SEEDS_PER_CASE; seed++)
		EXPECT_EQ("", _Run(seed)) << "PALIMBRA_SHAKE=" << seed;
}


INSTANTIATE_TEST_SUITE_P(Seeds, ShakenSessionTest, testing::Range(0u, 10u));
