/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRACKER_RECORDS_H
#define TRACKER_RECORDS_H


#include <cstdint>
#include <string>


// What a tracker sends, written down by the test itself.

// The header of an answer: its size field and the number of servers.
std::string TrackerHeader(uint16_t messageSize, uint16_t serverCount);
// A record; the address is 10.20.30.40, and two bytes that nobody needs are not zero.
std::string ServerRecord(const std::string& name, const std::string& description,
	uint16_t port = 5500, uint16_t users = 0);


#endif // TRACKER_RECORDS_H
