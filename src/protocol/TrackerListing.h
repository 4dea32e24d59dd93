/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRACKER_LISTING_H
#define TRACKER_LISTING_H


#include <cstddef>

#include <SupportDefs.h>


class BString;


// The client's greeting to a tracker, and the header of its answer, in bytes.
static const size_t kTrackerRequestSize = 6;
static const size_t kTrackerHeaderSize = 14;
// What is read at most when a tracker does not say how long its listing is, in bytes.
static const size_t kMaxUnsizedListing = 65536;


/*!	One server of a tracker's listing. The texts are the bytes of the tracker, terminated. */
struct TrackerRecord {
	uint8 address[4]; // most significant byte first
	uint16 port;
	uint16 users;
	char name[256];
	char description[256];
};


/*!	Walks the records of a tracker's listing.
	Borrows the bytes, which must outlive it. Not thread-safe; never reads past the given size, and
	stops at the first record that is cut. What else there is to read and write when talking to a
	tracker is in its static functions.
*/
class TrackerListing {
public:
	TrackerListing(const uint8* bytes, size_t size);

	[[nodiscard]] bool Next(TrackerRecord* _record);

	static void BuildRequest(uint8* buffer);
	[[nodiscard]] static bool ReadHeader(const uint8* header, size_t* _listingSize,
		uint16* _serverCount);
	static uint16 SplitAddress(const char* address, BString* _host);

private:
	bool _ReadText(char* text);

	const uint8* fBytes;
	size_t fSize;
	size_t fPosition;
};


#endif // TRACKER_LISTING_H
