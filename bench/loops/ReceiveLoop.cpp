/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// The least that receives chat lines in two steps each, without reading ahead: the system calls and
// nothing else.

#include <string>
#include <sys/select.h>
#include <sys/socket.h>

#include "Clocks.h"
#include "Fail.h"
#include "Figures.h"
#include "Partner.h"
#include "Stream.h"


static const size_t kHeaderSize = 22;
static const size_t kPayloadSize = 40;


static bool
is_readable(int socket, time_t seconds)
{
	fd_set readable;
	FD_ZERO(&readable);
	FD_SET(socket, &readable);
	timeval timeout = {seconds, 0};
	const int ready = select(socket + 1, &readable, NULL, NULL, &timeout);
	if (ready < 0)
		Fail("select");
	return ready > 0;
}


/*!	The bytes are there already, as a rule: a look costs less than a wait. */
static void
receive_stage(int socket, char* buffer, size_t size)
{
	while (size > 0) {
		if (!is_readable(socket, 0) && !is_readable(socket, 1))
			continue;
		const ssize_t received = recv(socket, buffer, size, 0);
		if (received < 1)
			Fail("recv");
		buffer += received;
		size -= static_cast<size_t>(received);
	}
}


int
main(int argumentCount, char** arguments)
{
	const long count = argumentCount > 1 ? atol(arguments[1]) : 1000000;
	Partner partner({"chat", std::to_string(count)});
	const int socket = ConnectToLoopback(partner.Port());
	char buffer[kHeaderSize + kPayloadSize];
	SendFully(socket, "TRTPHOTL\0\1\0\2", 12);
	ReceiveFully(socket, buffer, 8);

	const double begin = ThreadTime();
	partner.Go();
	for (long i = 0; i < count; i++) {
		receive_stage(socket, buffer, kHeaderSize);
		receive_stage(socket, buffer + kHeaderSize, kPayloadSize);
	}
	const double time = ThreadTime() - begin;

	Figures figures;
	figures.Add("receive_us", time / static_cast<double>(count) * 1e6);
	figures.Add("delivered_us", time / static_cast<double>(count) * 1e6);
	figures.Print();
	return 0;
}
