/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ControlPartner.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

#include "Fail.h"
#include "Stream.h"
#include "WireBytes.h"
#include "WireRecords.h"


static const size_t kChatSize = 62;
static const size_t kHeaderSize = 22;
static const size_t kFieldHeaderSize = 4;
static const size_t kBlockSize = 1 << 20;

enum {
	kReply = 0x10000,
	kChatLine = 106,
	kLogin = 107,
	kFileListRequest = 200,
	kUserListRequest = 300,
	kText = 101,
	kFile = 200,
	kUser = 300,
	kServerName = 162
};


static int
greet(int listener)
{
	const int client = accept(listener, NULL, NULL);
	char magic[12];
	if (client < 0)
		Fail("accept");
	ReceiveFully(client, magic, sizeof(magic));
	SendFully(client, "TRTP\0\0\0\0", 8);
	return client;
}


static void
wait_for_word()
{
	char word;
	if (read(STDIN_FILENO, &word, 1) < 0)
		Fail("read");
}


static void
wait_for_end(int client)
{
	char rest[4096];
	while (recv(client, rest, sizeof(rest), 0) > 0)
		;
	close(client);
}


void
ServeChat(int listener, long count)
{
	std::string text = " Bosun:  the tide turns at six";
	text.resize(kChatSize - kHeaderSize - kFieldHeaderSize, '.');
	const std::string line = wire_transaction(kChatLine, 0, wire_param(kText, text));
	std::string block;
	while (block.size() < kBlockSize)
		block += line;

	const int client = greet(listener);
	wait_for_word();
	for (size_t left = static_cast<size_t>(count) * kChatSize; left > 0;) {
		const size_t size = left < block.size() ? left : block.size();
		SendFully(client, block.data(), size);
		left -= size;
	}
	wait_for_end(client);
}


// #pragma mark - Listing


/*!	Files of all kinds that rows look different for, every tenth a folder. */
static std::string
file_fields(long count)
{
	static const char* const kEndings[] = {".txt", ".sit", ".jpg", "", " (final).pdf"};
	std::string fields;
	for (long i = 0; i < count; i++) {
		const bool isFolder = i % 10 == 9;
		const std::string name = (isFolder ? "Charts of " : "Logbook ") + std::to_string(i * 7919)
			+ (isFolder ? "" : kEndings[i % 5]);
		fields += wire_param(kFile,
			(isFolder ? "fldrn/a " : "TEXTttxt") + wire32(static_cast<uint32_t>(i * 977 % 5000000))
				+ wire_zeros(4) + wire32(static_cast<uint32_t>(name.size())) + name);
	}
	return fields;
}


static std::string
answer_to(uint32_t type, uint32_t id)
{
	std::string fields;
	if (type == kLogin)
		fields = wire_param(kServerName, "Harbor");
	else if (type == kUserListRequest)
		fields = wire_param(kUser, wire_user(1, 128, 0, "Bosun"));
	return wire_transaction(kReply, id, fields);
}


void
ServeListing(int listener, long count)
{
	const std::string files = file_fields(count);
	const int client = greet(listener);
	uint32_t header[kHeaderSize / 4 + 1];
	while (recv(client, header, kHeaderSize, MSG_WAITALL) == static_cast<ssize_t>(kHeaderSize)) {
		const uint32_t type = ntohl(header[0]);
		const uint32_t id = ntohl(header[1]);
		std::vector<char> rest(ntohl(header[3]) - 2);
		ReceiveFully(client, rest.data(), rest.size());

		std::string answer = answer_to(type, id);
		if (type == kFileListRequest) {
			answer = wire_transaction(kReply, id, files);
			wait_for_word();
		}
		SendFully(client, answer.data(), answer.size());
	}
	close(client);
}
