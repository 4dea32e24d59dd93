/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cstdio>
#include <string>
#include <sys/wait.h>

#include <gtest/gtest.h>

#include <Application.h>
#include <String.h>


/*!	Runs the program of the quit scenarios.
	\param environment Variables for it, as a shell takes them.
	\return What it printed, and its status.
*/
static std::string
run_scenario(const char* name, const char* environment = "")
{
	BString command;
	command.SetToFormat("%s timeout 60 '%s' '%s' 2>/dev/null", environment, QUIT_PROGRAM, name);
	FILE* pipe = popen(command.String(), "r");
	if (pipe == NULL)
		return "not started";

	std::string output;
	char buffer[256];
	while (fgets(buffer, sizeof(buffer), pipe) != NULL)
		output += buffer;
	return output + "status " + std::to_string(WEXITSTATUS(pclose(pipe)));
}


static int
count(const std::string& text, const std::string& part)
{
	int result = 0;
	for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
		result++;
	return result;
}


TEST(ApplicationTest, Signature_IsTheOneThatWasGiven)
{
	EXPECT_STREQ("application/x-vnd.Palimbra-tests", be_app->Signature());
	EXPECT_TRUE(be_app_messenger.IsValid());
}


TEST(ApplicationTest, ThreeWaitingWindows_CloseInEveryOrder_AndThenTheProgramQuits)
{
	for (const char* order : {"012", "021", "102", "120", "201", "210"}) {
		SCOPED_TRACE(order);
		const std::string output = run_scenario((std::string("order ") + order).c_str());
		EXPECT_EQ(3, count(output, "gone:")) << output;
		EXPECT_EQ(3, count(output, "asked:")) << output;
		EXPECT_NE(std::string::npos, output.find("yes:application status 0")) << output;
	}
}


TEST(ApplicationTest, Scenarios_EndAsTheyShall)
{
	const struct {
		const char* scenario;
		const char* environment;
		const char* output;
	} cases[] = {
		{"info", "", "ok:quit_program signature:application/x-vnd.Palimbra-quit yes:application"},
		// The toolkit takes this variable out, so it has to stand last.
		{"environment", "DESKTOP_STARTUP_ID=it", "last:DESKTOP_STARTUP_ID=it yes:application"},
		// A controller asks the application, and takes its refusing windows with it.
		{"controller", "",
			"asked:main gone:chat gone:users gone:main asked:other gone:other yes:application"},
		// A window that refuses stops the quit, until it agrees.
		{"refusal", "",
			"asked:first gone:first asked:stubborn no:application asked:stubborn gone:stubborn "
			"asked:last gone:last yes:application"},
		// A window that waits in a handler is asked when it has left it.
		{"waiting", "",
			"asked:first gone:first no:application waited:waiting asked:waiting gone:waiting "
			"yes:application"},
		// Threads that still post do not keep the program.
		{"threads", "", "asked:window gone:window yes:application"},
	};
	for (const auto& entry : cases) {
		SCOPED_TRACE(entry.scenario);
		EXPECT_EQ(std::string(entry.output) + " status 0",
			run_scenario(entry.scenario, entry.environment));
	}
}
