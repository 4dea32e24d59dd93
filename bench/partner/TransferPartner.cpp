/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransferPartner.h"

#include <sys/socket.h>
#include <thread>
#include <unistd.h>

#include "Fail.h"
#include "Stream.h"
#include "WireBytes.h"
#include "WireRecords.h"


static const size_t kRequestSize = 16;
static const size_t kBlockSize = 256 * 1024;


static std::string
file_description(long size)
{
	const std::string information = wire_information_fork("cargo");
	return "FILP" + wire16(1) + wire_zeros(16) + wire16(2)
		+ wire_fork_header("INFO", static_cast<uint32_t>(information.size())) + information
		+ wire_fork_header("DATA", static_cast<uint32_t>(size));
}


static void
send_file(int client, long size)
{
	static const std::string sBlock(kBlockSize, 'x');
	char request[kRequestSize];
	ReceiveFully(client, request, sizeof(request));
	const std::string description = file_description(size);
	SendFully(client, description.data(), description.size());
	for (size_t left = static_cast<size_t>(size); left > 0;) {
		const size_t piece = left < sBlock.size() ? left : sBlock.size();
		SendFully(client, sBlock.data(), piece);
		left -= piece;
	}
	close(client);
}


static void
take_all(int client)
{
	// The bytes are dropped where they are.
	while (recv(client, NULL, kBlockSize, MSG_TRUNC) > 0)
		;
	close(client);
}


template<class Work>
static void
serve_each(int listener, Work work)
{
	while (true) {
		const int client = accept(listener, NULL, NULL);
		if (client < 0)
			Fail("accept");
		std::thread(work, client).detach();
	}
}


void
ServeFiles(int listener, long size)
{
	serve_each(listener, [size](int client) {
		send_file(client, size);
	});
}


void
ServeUploads(int listener)
{
	serve_each(listener, take_all);
}
