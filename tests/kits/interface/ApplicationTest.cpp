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


namespace {


/*!	Runs the program of the quit scenarios.
	\param environment Variables for it, as a shell takes them.
	\return What it printed, and its status.
*/
std::string
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


int
count(const std::string& text, const std::string& part)
{
	int result = 0;
	for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
		result++;
	return result;
}


} // namespace


TEST(ApplicationTest, AppInfo_NamesTheProgramAndItsSignature)
{
	EXPECT_EQ("ok:quit_program signature:application/x-vnd.Palimbra-quit yes:application status 0",
		run_scenario("info"));
}


TEST(ApplicationTest, Signature_IsTheOneThatWasGiven)
{
	EXPECT_STREQ("application/x-vnd.Palimbra-tests", be_app->Signature());
	EXPECT_TRUE(be_app_messenger.IsValid());
}


TEST(ApplicationTest, VariableThatTheToolkitTakesOut_StandsLastInTheEnvironment)
{
	EXPECT_EQ("last:DESKTOP_STARTUP_ID=it yes:application status 0",
		run_scenario("environment", "DESKTOP_STARTUP_ID=it"));
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


TEST(ApplicationTest, ControllerThatAsksTheApplication_TakesItsRefusingWindowsWithIt)
{
	EXPECT_EQ("asked:main gone:chat gone:users gone:main asked:other gone:other yes:application "
			  "status 0",
		run_scenario("controller"));
}


TEST(ApplicationTest, WindowThatRefuses_StopsTheQuit_UntilItAgrees)
{
	EXPECT_EQ("asked:first gone:first asked:stubborn no:application asked:stubborn gone:stubborn "
			  "asked:last gone:last yes:application status 0",
		run_scenario("refusal"));
}


TEST(ApplicationTest, WindowThatWaitsInAHandler_IsAskedWhenItHasLeftIt)
{
	EXPECT_EQ("asked:first gone:first no:application waited:waiting asked:waiting gone:waiting "
			  "yes:application status 0",
		run_scenario("waiting"));
}


TEST(ApplicationTest, ThreadsThatStillPost_DoNotKeepTheProgram)
{
	EXPECT_EQ("asked:window gone:window yes:application status 0", run_scenario("threads"));
}
