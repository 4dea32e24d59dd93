/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TrackerAnswer.h"

#include <algorithm>
#include <vector>

#include "ByteOrder.h"
#include "Server.h"


namespace demo {


static const uint32_t kLoopback = 0x7f000001;
static const size_t kManyServers = 2000;


struct ServerRecord {
	uint16_t port;
	size_t users;
	std::string name;
	std::string description;
};


static std::string
flatten(const ServerRecord& record)
{
	std::string bytes;
	append_32(bytes, kLoopback);
	append_16(bytes, record.port);
	append_16(bytes, static_cast<uint16_t>(std::min<size_t>(record.users, 0xffff)));
	append_16(bytes, 0);
	bytes.push_back(static_cast<char>(record.name.size()));
	bytes += record.name;
	bytes.push_back(static_cast<char>(record.description.size()));
	return bytes + record.description;
}


static std::string
header(const char* magic, size_t listingSize, size_t count)
{
	std::string bytes = magic;
	append_16(bytes, 1);
	append_16(bytes, 1);
	// The counts of servers are part of what is counted.
	append_16(bytes, static_cast<uint16_t>(listingSize + 4));
	append_16(bytes, static_cast<uint16_t>(count));
	append_16(bytes, static_cast<uint16_t>(count));
	return bytes;
}


static std::string
flatten(const std::vector<ServerRecord>& records)
{
	std::string listing;
	for (const ServerRecord& record : records)
		listing += flatten(record);
	return header("HTRK", listing.size(), records.size()) + listing;
}


// The ports of the others are those of long forgotten services, where nobody listens.
static std::vector<ServerRecord>
usual_records(const ServerRecord& own)
{
	return {
		own,
		{7, 3, "Harbour Office", "Tides, timetables and tall stories"},
		{9, 0, "The Closed Door", "Nobody answers here"},
		{11, 12, "Чайная «Сова»", "Открыто всю ночь"},
		{13, 7, "月の茶屋", "静かに話しましょう"},
		{17, 1, "<b>Bold</b> & Co", "100%s &ampersands [*]"},
		{19, 65535, std::string(255, 'n'), std::string(255, 'd')},
		{own.port, own.users, "", "The same server, without a name"},
	};
}


static std::vector<ServerRecord>
many_records(const ServerRecord& own)
{
	std::vector<ServerRecord> records = {own};
	while (records.size() < kManyServers) {
		std::string number = std::to_string(records.size() + 1);
		records.push_back({9, records.size() % 40, "Server " + number, "No. " + number});
	}
	return records;
}


std::string
tracker_answer(TrackerMode mode, uint16_t port, size_t users)
{
	ServerRecord own = {port, users, Server::Name(),
		"A small community that answers when it is talked to"};
	switch (mode) {
		case TrackerMode::kUsual:
			return flatten(usual_records(own));
		case TrackerMode::kEmpty:
			return flatten(std::vector<ServerRecord>());
		case TrackerMode::kOne:
			return flatten(std::vector<ServerRecord>{own});
		case TrackerMode::kMany:
			return flatten(many_records(own));
		case TrackerMode::kTruncated:
		{
			std::string answer = flatten(usual_records(own));
			return answer.substr(0, answer.size() - 100);
		}
		case TrackerMode::kWrongMagic:
			return header("HTTP", 0, 0);
		case TrackerMode::kSilent:
			break;
	}
	return "";
}


} // namespace demo
