/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <vector>

#include <Looper.h>
#include <Message.h>

#include "AlarmBlock.h"
#include "HotlineClient.h"
#include "RawServer.h"


static const size_t kParameterHeaderSize = 4;
static const uint16_t kFileField = 200;
static const size_t kEntryHeaderSize = 20;
static const uint32_t kMaxNameSize = 255;


static void
require(bool condition, const char* what)
{
	if (!condition) {
		fprintf(stderr, "broken: %s\n", what);
		abort();
	}
}


static uint16_t
read_16(const uint8_t* bytes)
{
	return static_cast<uint16_t>(bytes[0] << 8 | bytes[1]);
}


static uint32_t
read_32(const uint8_t* bytes)
{
	return static_cast<uint32_t>(read_16(bytes)) << 16 | read_16(bytes + 2);
}


static std::string
wire_32(size_t value)
{
	std::string bytes;
	for (int shift = 24; shift >= 0; shift -= 8)
		bytes += static_cast<char>(value >> shift);
	return bytes;
}


/*!	Bytes as a text in a message has them: up to the first zero byte. */
static std::string
text_of(const uint8_t* bytes, size_t size)
{
	const uint8_t* end = std::find(bytes, bytes + size, 0);
	return std::string(bytes, end);
}


// #pragma mark -


struct Entry {
	std::string name;
	std::string type;
	std::string creator;
	int32 size;

	bool operator==(const Entry& other) const
	{
		return name == other.name && type == other.type && creator == other.creator
			&& size == other.size;
	}
};


/*!	What a reply with these parameters lists, read in the plainest way. */
static std::vector<Entry>
expected_entries(const uint8_t* bytes, size_t size)
{
	std::vector<Entry> entries;
	while (size >= kParameterHeaderSize) {
		const uint16_t field = read_16(bytes);
		const size_t length = read_16(bytes + 2);
		bytes += kParameterHeaderSize;
		size -= kParameterHeaderSize;
		if (length > size)
			break;
		if (field == kFileField && length >= kEntryHeaderSize) {
			const size_t nameSize = std::min(read_32(bytes + 16), kMaxNameSize);
			if (kEntryHeaderSize + nameSize <= length) {
				entries.push_back({text_of(bytes + kEntryHeaderSize, nameSize), text_of(bytes, 4),
					text_of(bytes + 4, 4), static_cast<int32>(read_32(bytes + 8))});
			}
		}
		bytes += length;
		size -= length;
	}
	return entries;
}


static int32
count_values(const BMessage& message, const char* name)
{
	type_code type;
	int32 count = 0;
	return message.GetInfo(name, &type, &count) == B_OK ? count : 0;
}


static std::vector<Entry>
entries_of(const BMessage& listing)
{
	const int32 count = count_values(listing, "name");
	for (const char* field : {"type", "creator", "size"})
		require(count_values(listing, field) == count, "the fields of a list are parallel");
	std::vector<Entry> entries;
	for (int32 i = 0; i < count; i++) {
		entries.push_back({listing.GetString("name", i, "?"), listing.GetString("type", i, "?"),
			listing.GetString("creator", i, "?"), listing.GetInt32("size", i, 0)});
	}
	return entries;
}


// #pragma mark -


/*!	Stands in for the main window: keeps the last listing. */
class Keeper : public BLooper {
public:
	Keeper()
		: BLooper("keeper"),
		  fHasListing(false)
	{
	}

	void MessageReceived(BMessage* message) override
	{
		const std::lock_guard<std::mutex> lock(fMutex);
		require(message->what == kHLConnected || message->what == kHLFileListReceived,
			"nothing but listings");
		if (message->what != kHLFileListReceived)
			return;
		fListing = *message;
		fHasListing = true;
		fChanged.notify_all();
	}

	BMessage WaitForListing()
	{
		std::unique_lock<std::mutex> lock(fMutex);
		while (!fHasListing)
			fChanged.wait(lock);
		fHasListing = false;
		return fListing;
	}

private:
	std::mutex fMutex;
	std::condition_variable fChanged;
	BMessage fListing;
	bool fHasListing;
};


/*!	A connection that serves for all inputs: whatever a list holds, the next one can be asked for.
*/
class Connection {
public:
	Connection()
		: fKeeper(new Keeper),
		  fClient(fKeeper)
	{
		{
			const AlarmBlock block;
			fKeeper->Run();
			fClient.Connect("127.0.0.1", fServer.Port(), "", "", "Ann", 137);
		}
		require(fServer.Accept(), "the client calls");
		fServer.Read(12);
		fServer.Send(std::string("TRTP\0\0\0\0", 8));
		fServer.ReadTransaction();
	}

	BMessage List(const std::string& parameters)
	{
		fClient.RequestFileList("a/b");
		const std::string id = fServer.ReadTransaction().substr(4, 4);
		const std::string size = wire_32(parameters.size() + 2);
		fServer.Send(
			std::string("\0\1\0\0", 4) + id + wire_32(0) + size + size + "\xff\xff" + parameters);
		return fKeeper->WaitForListing();
	}

private:
	RawServer fServer;
	Keeper* fKeeper;
	HotlineClient fClient;
};


/*!	The input is the parameters of a reply to the request for a file list. A reply without any is
	not seen.
*/
extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	static Connection* const connection = new Connection;

	if (size == 0)
		return 0;
	const BMessage listing = connection->List(
		std::string(reinterpret_cast<const char*>(data), size));
	require(listing.GetString("path", "?") == std::string("a/b"), "the path that was asked for");
	require(entries_of(listing) == expected_entries(data, size), "the entries that are whole");
	return 0;
}
