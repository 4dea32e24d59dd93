/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// The least that moves a file between a socket and the file system: the two system calls and
// nothing else. In a second thread, as where threads share their open files the kernel counts who
// uses one and locks its position; or in the only one.
// usage: bench_transfer_loop download|upload SIZE second|only PATH

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

#include "Clocks.h"
#include "Fail.h"
#include "Figures.h"
#include "Partner.h"
#include "Stream.h"


static const size_t kBufferSize = 16384;
static const size_t kRequestSize = 16;
// What stands before the file's own bytes, with the partner's name for it.
static const size_t kDescriptionSize = 135;


static void
download(int socket, size_t left, const char* path)
{
	alignas(64) char buffer[kBufferSize] = {};
	SendFully(socket, buffer, kRequestSize);
	ReceiveFully(socket, buffer, kDescriptionSize);
	const int file = open(path, O_WRONLY | O_CREAT | O_TRUNC, 0666);
	while (left > 0) {
		const ssize_t size = recv(socket, buffer, std::min(left, sizeof(buffer)), 0);
		if (size < 1 || write(file, buffer, static_cast<size_t>(size)) != size)
			Fail("download");
		left -= static_cast<size_t>(size);
	}
	close(file);
}


static void
upload(int socket, size_t left, const char* path)
{
	alignas(64) char buffer[kBufferSize] = {};
	const int file = open(path, O_RDONLY);
	SendFully(socket, buffer, kRequestSize + kDescriptionSize);
	while (left > 0) {
		const ssize_t size = read(file, buffer, std::min(left, sizeof(buffer)));
		if (size < 1)
			Fail("upload");
		SendFully(socket, buffer, static_cast<size_t>(size));
		left -= static_cast<size_t>(size);
	}
	close(file);
}


int
main(int argumentCount, char** arguments)
{
	if (argumentCount < 5)
		Fail("arguments");
	const bool isDownload = strcmp(arguments[1], "download") == 0;
	const size_t size = std::stoul(arguments[2]);
	const bool isSecondThread = strcmp(arguments[3], "second") == 0;
	const auto transfer = isDownload ? download : upload;
	Partner partner({isDownload ? "files" : "uploads", arguments[2]});

	const double wall = WallTime();
	const double cpu = ProcessTime();
	const int socket = ConnectToLoopback(partner.Port());
	if (isSecondThread)
		std::thread(transfer, socket, size, arguments[4]).join();
	else
		transfer(socket, size, arguments[4]);
	close(socket);
	const double usedCpu = ProcessTime() - cpu;
	const double usedWall = WallTime() - wall;

	Figures figures;
	figures.Add("cpu_s", usedCpu);
	figures.Add("mb_per_s", static_cast<double>(size) / usedWall / 1e6);
	figures.Print();
	return 0;
}
