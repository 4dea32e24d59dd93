/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "WireRecords.h"

#include "WireBytes.h"


std::string
wire_user(uint16_t socket, uint16_t icon, uint16_t color, const std::string& nick)
{
	return wire16(socket) + wire16(icon) + wire16(color)
		+ wire16(static_cast<unsigned int>(nick.size())) + nick;
}


std::string
wire_file(const char* type, const char* creator, uint32_t size, const std::string& name)
{
	return type + std::string(creator) + wire32(size) + wire32(0)
		+ wire32(static_cast<uint32_t>(name.size())) + name;
}


std::string
wire_fork_header(const std::string& type, uint32_t size)
{
	return type + wire32(0) + wire32(0) + wire32(size);
}


std::string
wire_information_fork(const std::string& name)
{
	// Platform, type, creator, two words of flags, 32 reserved bytes, two dates of 8 bytes, the
	// script of the name, the name with its length, the length of the comment.
	return "AMAC????????" + wire32(0) + wire32(0) + wire_zeros(32) + wire_zeros(8) + wire_zeros(8)
		+ wire16(0) + wire16(static_cast<unsigned int>(name.size())) + name + wire16(0);
}


std::string
wire_file_object(const std::string& data, const std::string& information)
{
	return "FILP" + wire16(1) + wire_zeros(16) + wire16(2)
		+ wire_fork_header("INFO", static_cast<uint32_t>(information.size())) + information
		+ wire_fork_header("DATA", static_cast<uint32_t>(data.size())) + data;
}


std::string
wire_tracker_header(uint16_t messageSize, uint16_t serverCount)
{
	// A version, a type of message and a second count that are to be ignored.
	return "HTRK" + wire16(0x7777) + wire16(0x8888) + wire16(messageSize) + wire16(serverCount)
		+ wire16(0x9999);
}


std::string
wire_server_record(const std::string& name, const std::string& description, uint16_t port,
	uint16_t users)
{
	return wire8(10) + wire8(20) + wire8(30) + wire8(40) + wire16(port) + wire16(users)
		+ wire16(0x6666) + wire8(static_cast<unsigned int>(name.size())) + name
		+ wire8(static_cast<unsigned int>(description.size())) + description;
}
