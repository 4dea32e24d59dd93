/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Partner.h"

#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

#include "Fail.h"


static std::string
path_beside_program(const char* name)
{
	char path[4096];
	const ssize_t length = readlink("/proc/self/exe", path, sizeof(path));
	if (length < 1)
		Fail("readlink");
	const std::string program(path, static_cast<size_t>(length));
	return program.substr(0, program.rfind('/') + 1) + name;
}


Partner::Partner(const std::vector<std::string>& arguments)
	: fProcess(-1),
	  fInput(-1),
	  fPort(0)
{
	const std::string path = path_beside_program("bench_partner");
	std::vector<char*> list = {const_cast<char*>(path.c_str())};
	for (const std::string& argument : arguments)
		list.push_back(const_cast<char*>(argument.c_str()));
	list.push_back(NULL);

	int input[2];
	int output[2];
	if (pipe(input) != 0 || pipe(output) != 0)
		Fail("pipe");
	fProcess = fork();
	if (fProcess == 0) {
		dup2(input[0], STDIN_FILENO);
		dup2(output[1], STDOUT_FILENO);
		close(input[1]);
		execv(path.c_str(), list.data());
		_exit(127);
	}
	close(input[0]);
	close(output[1]);
	fInput = input[1];

	char line[16] = {};
	if (fProcess < 0 || read(output[0], line, sizeof(line) - 1) < 1)
		Fail("bench_partner");
	close(output[0]);
	fPort = static_cast<uint16_t>(atoi(line));
}


Partner::~Partner()
{
	close(fInput);
	waitpid(fProcess, NULL, 0);
}


void
Partner::Go()
{
	if (write(fInput, "!", 1) != 1)
		Fail("bench_partner");
}
