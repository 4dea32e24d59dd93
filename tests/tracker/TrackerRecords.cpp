/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TrackerRecords.h"

#include "WireBytes.h"


std::string
TrackerHeader(uint16_t messageSize, uint16_t serverCount)
{
	// A version, a type of message and a second count that are to be ignored.
	return "HTRK" + wire16(0x7777) + wire16(0x8888) + wire16(messageSize) + wire16(serverCount)
		+ wire16(0x9999);
}


std::string
ServerRecord(const std::string& name, const std::string& description, uint16_t port, uint16_t users)
{
	return wire8(10) + wire8(20) + wire8(30) + wire8(40) + wire16(port) + wire16(users)
		+ wire16(0x6666) + wire8(unsigned(name.size())) + name + wire8(unsigned(description.size()))
		+ description;
}
