/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef WIRE_RECORDS_H
#define WIRE_RECORDS_H


#include <cstdint>
#include <string>


// What servers and trackers send inside of fields and beside transactions, written field by field.

// An entry of the user list.
std::string wire_user(uint16_t socket, uint16_t icon, uint16_t color, const std::string& nick);
// An entry of a file list.
std::string wire_file(const char* type, const char* creator, uint32_t size,
	const std::string& name);

// A flattened file object, or parts of it. The information is what the client itself would send for
// a file of that name.
std::string wire_fork_header(const std::string& type, uint32_t size);
std::string wire_information_fork(const std::string& name);
std::string wire_file_object(const std::string& data,
	const std::string& information = wire_information_fork("notes.txt"));

// The header of a tracker's answer: its size field and the number of servers.
std::string wire_tracker_header(uint16_t messageSize, uint16_t serverCount);
// A record of it; the address is 10.20.30.40, and two bytes that nobody needs are not zero.
std::string wire_server_record(const std::string& name, const std::string& description,
	uint16_t port = 5500, uint16_t users = 0);


#endif // WIRE_RECORDS_H
