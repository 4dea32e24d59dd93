/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

#include <Looper.h>

#include "TransferThreads.h"


// Fits into the buffer of a socket, with what the system adds to each piece.
static const size_t kMaxStream = 65536;
static const size_t kRequestSize = 16;

static int sClientEnd = -1;


/*!	Stands in for the system's: whatever connects has the other end of the fuzz function's pair of
	sockets.
*/
extern "C" int
connect(int socket, const struct sockaddr* /*address*/, socklen_t /*length*/)
{
	return dup2(sClientEnd, socket) == socket ? 0 : -1;
}


static void
check(bool holds, const char* what)
{
	if (holds)
		return;
	fprintf(stderr, "not so: %s\n", what);
	abort();
}


static uint32_t
big_endian(const uint8_t* bytes, size_t size)
{
	uint32_t value = 0;
	for (size_t i = 0; i < size; i++)
		value = value << 8 | bytes[i];
	return value;
}


/*!	Runs a download that meets the stream, writing into a file in memory.
	\param _file Receives what the file holds then.
*/
static status_t
download(const uint8_t* stream, size_t size, std::string* _file)
{
	// Nobody listens to how it ended: the looper is gone.
	static BLooper* sTarget = [] {
		BLooper* looper = new BLooper;
		looper->Lock();
		looper->Quit();
		return looper;
	}();
	static const int sFile = memfd_create("download", 0);
	static const std::string sPath = "/proc/self/fd/" + std::to_string(sFile);

	int pair[2];
	check(socketpair(AF_UNIX, SOCK_STREAM, 0, pair) == 0, "there is a pair of sockets");
	check(size == 0 || send(pair[0], stream, size, MSG_DONTWAIT) == static_cast<ssize_t>(size),
		"the stream fits into the socket");
	shutdown(pair[0], SHUT_WR);
	sClientEnd = pair[1];

	const status_t result = DownloadThread(
		new DownloadInfo{"127.0.0.1", 5500, 1, 0, sPath.c_str(), "name", sTarget});
	close(pair[1]);

	char request[kRequestSize + 1];
	check(recv(pair[0], request, sizeof(request), MSG_WAITALL) == static_cast<ssize_t>(kRequestSize)
			&& memcmp(request, "HTXF", 4) == 0,
		"the request is sent, and the connection closed");
	close(pair[0]);

	_file->resize(static_cast<size_t>(lseek(sFile, 0, SEEK_END)));
	check(pread(sFile, _file->data(), _file->size(), 0) == static_cast<ssize_t>(_file->size()),
		"the file reads");
	check(ftruncate(sFile, 0) == 0, "the file empties");
	return result;
}


/*!	The input is what a server sends on the transfer connection. */
extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	size = std::min(size, kMaxStream);
	std::string file;
	const status_t result = download(data, size, &file);

	// The information's size stands at the end of its header, its low half alone counting; then
	// comes the data's header.
	size_t start = 40;
	if (size >= 40)
		start += big_endian(data + 38, 2) + 16;
	if (size < start) {
		check(result == 1 && file.empty(), "a stream without data fails");
		return 0;
	}
	const size_t length = std::min<size_t>(big_endian(data + start - 4, 4), size - start);
	check(result == 0, "a stream with data is read");
	check(file.size() == length && memcmp(file.data(), data + start, length) == 0,
		"the file holds the data that arrived");
	return 0;
}
