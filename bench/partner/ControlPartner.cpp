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
#include "WireWriter.h"


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
	WireWriter field;
	field.Field(kText, text);
	const std::string line = Transaction(kChatLine, 0, 1, field.Bytes());
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
	WireWriter fields;
	for (long i = 0; i < count; i++) {
		const bool isFolder = i % 10 == 9;
		const std::string name = (isFolder ? "Charts of " : "Logbook ") + std::to_string(i * 7919)
			+ (isFolder ? "" : kEndings[i % 5]);
		WireWriter entry;
		entry.Text(isFolder ? "fldr" : "TEXT");
		entry.Text(isFolder ? "n/a " : "ttxt");
		entry.Number(static_cast<uint64_t>(i) * 977 % 5000000, 4);
		entry.Zeros(4);
		entry.Number(name.size(), 4);
		entry.Text(name);
		fields.Field(kFile, entry.Bytes());
	}
	return fields.Bytes();
}


static std::string
answer_to(uint32_t type, uint32_t id)
{
	WireWriter fields;
	if (type == kLogin) {
		fields.Field(kServerName, "Harbor");
	} else if (type == kUserListRequest) {
		WireWriter user;
		user.Number(1, 2);
		user.Number(128, 2);
		user.Number(0, 2);
		user.Number(5, 2);
		user.Text("Bosun");
		fields.Field(kUser, user.Bytes());
	}
	return Transaction(kReply, id, 1, fields.Bytes());
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
			answer = Transaction(kReply, id, static_cast<int>(count), files);
			wait_for_word();
		}
		SendFully(client, answer.data(), answer.size());
	}
	close(client);
}
