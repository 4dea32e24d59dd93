/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "DemoServer.h"

#include <csignal>
#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "RawClient.h"


using demo::DemoServer;


TEST(DemoServerTest, NotStarted_HasNoPort)
{
	DemoServer server;
	EXPECT_EQ(server.Port(), 0);
	server.Stop();
}


TEST(DemoServerTest, StartedTwice_SecondTimeRefused)
{
	DemoServer server;
	ASSERT_TRUE(server.Start());
	uint16_t port = server.Port();
	EXPECT_FALSE(server.Start());
	EXPECT_EQ(server.Port(), port);
}


TEST(DemoServerTest, PortTaken_DoesNotStart)
{
	DemoServer first;
	ASSERT_TRUE(first.Start());
	DemoServer second;
	EXPECT_FALSE(second.Start(first.Port()));
	EXPECT_EQ(second.Port(), 0);
	EXPECT_FALSE(second.Start(static_cast<uint16_t>(first.Port() + 1))) << "where files travel";
	EXPECT_FALSE(second.Start(static_cast<uint16_t>(first.Port() - 1))) << "so would the files";
	EXPECT_TRUE(second.Start());
}


TEST(DemoServerTest, TrackerPortTaken_DoesNotStart)
{
	DemoServer first;
	ASSERT_TRUE(first.Start());
	demo::ServerOptions options;
	options.trackerPort = first.TrackerPort();
	DemoServer second(options);
	EXPECT_FALSE(second.Start());
}


TEST(DemoServerTest, AnyOtherAddress_NotListenedTo)
{
	DemoServer server;
	ASSERT_TRUE(server.Start());
	EXPECT_FALSE(RawClient(server.Port(), "127.0.0.2").IsConnected());
	EXPECT_TRUE(RawClient(server.Port()).IsConnected());
}


TEST(DemoServerTest, Stopped_ClosesEveryConnection)
{
	DemoServer server;
	ASSERT_TRUE(server.Start());
	RawClient joined(server.Port());
	joined.Join("Tester");
	RawClient fresh(server.Port());
	ASSERT_TRUE(fresh.ShakeHands());
	uint16_t port = server.Port();
	server.Stop();

	while (joined.ReceiveMessage().size() > 20)
		;
	EXPECT_TRUE(fresh.ReceiveEnd());
	EXPECT_FALSE(RawClient(port).IsConnected());
	EXPECT_EQ(server.Port(), 0);
}


TEST(DemoServerTest, StartedAgain_OnTheSamePort)
{
	DemoServer server;
	ASSERT_TRUE(server.Start());
	uint16_t port = server.Port();
	RawClient before(port);
	before.Join("Tester");
	server.Stop();
	ASSERT_TRUE(server.Start(port));
	RawClient after(port);
	EXPECT_NE(after.Join("Tester"), 0);
}


// The program itself, with its output read from a pipe.
class DemoProgram {
public:
	explicit DemoProgram(std::vector<const char*> arguments)
	{
		int ends[2];
		if (pipe(ends) != 0)
			return;
		fProcess = fork();
		if (fProcess == 0) {
			dup2(ends[1], STDOUT_FILENO);
			dup2(ends[1], STDERR_FILENO);
			close(ends[0]);
			close(ends[1]);
			arguments.insert(arguments.begin(), DEMO_PROGRAM);
			arguments.push_back(NULL);
			execv(DEMO_PROGRAM, const_cast<char* const*>(arguments.data()));
			_exit(127);
		}
		close(ends[1]);
		fOutput = fdopen(ends[0], "r");
	}

	~DemoProgram()
	{
		if (fProcess > 0)
			End(SIGKILL);
		fclose(fOutput);
	}

	std::string Line()
	{
		char line[256] = "";
		return fgets(line, sizeof(line), fOutput) != NULL ? line : "";
	}

	// The exit status; -1 if it did not end by itself.
	int End(int signal = 0)
	{
		int status = 0;
		if (signal != 0)
			kill(fProcess, signal);
		waitpid(fProcess, &status, 0);
		fProcess = -1;
		return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
	}

private:
	pid_t fProcess = -1;
	FILE* fOutput = NULL;
};


TEST(DemoProgramTest, FreePort_ToldAndServedUntilTheSignal)
{
	for (int signal : {SIGINT, SIGTERM}) {
		SCOPED_TRACE(signal);
		DemoProgram program({"--port", "0"});
		std::string line = program.Line();
		unsigned port = 0;
		ASSERT_EQ(sscanf(line.c_str(), "listening on 127.0.0.1:%u\n", &port), 1) << line;
		unsigned trackerPort = 0;
		line = program.Line();
		ASSERT_EQ(sscanf(line.c_str(), "tracker on 127.0.0.1:%u\n", &trackerPort), 1) << line;
		RawClient client(static_cast<uint16_t>(port));
		EXPECT_NE(client.Join("Tester"), 0);
		EXPECT_TRUE(RawClient(static_cast<uint16_t>(port + 1)).IsConnected());
		EXPECT_TRUE(RawClient(static_cast<uint16_t>(trackerPort)).IsConnected());
		EXPECT_EQ(program.End(signal), 0);
	}
}


TEST(DemoProgramTest, PortTaken_SaysSoAndFails)
{
	DemoServer server;
	ASSERT_TRUE(server.Start());
	std::string port = std::to_string(server.Port());
	DemoProgram program({"--port", port.c_str()});
	std::string line = program.Line();
	EXPECT_EQ(line.rfind("cannot listen on 127.0.0.1, ports " + port + ", ", 0), 0u) << line;
	EXPECT_NE(line.find(": Address already in use\n"), std::string::npos) << line;
	EXPECT_EQ(program.End(), 1);
}


TEST(DemoProgramTest, UnknownOption_SaysSoAndFails)
{
	DemoProgram program({"--teapot"});
	EXPECT_EQ(program.Line(), "Unknown option --teapot.\n");
	EXPECT_EQ(program.End(), 2);
}


TEST(DemoProgramTest, Help_OnRequest)
{
	DemoProgram program({"--help"});
	EXPECT_EQ(program.Line(),
		"A small Hotline server to try the client with, on 127.0.0.1 only.\n");
	EXPECT_EQ(program.End(), 0);
}
