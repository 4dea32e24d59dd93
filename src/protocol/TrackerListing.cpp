/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TrackerListing.h"

#include <cstdlib>
#include <cstring>

#include <String.h>

#include "HotlineProtocol.h"


// Both sides begin with it.
static const uint32 kMagic = 'HTRK';

// A record up to and including the length of its name; what follows differs in size.
static const size_t kRecordHeaderSize = 11;
static const size_t kNameLengthOffset = 10;
// The size in the header counts these bytes of the header, too.
static const size_t kCountsSize = 4;


TrackerListing::TrackerListing(const uint8* bytes, size_t size)
	: fBytes(bytes),
	  fSize(size),
	  fPosition(0)
{
}


/*!	Reads the next record and moves behind it.
	\return \c false at the end and at a record that is not whole; there is no going on then.
*/
bool
TrackerListing::Next(TrackerRecord* _record)
{
	if (fSize - fPosition < kRecordHeaderSize)
		return false;

	const uint8* header = fBytes + fPosition;
	memcpy(_record->address, header, sizeof(_record->address));
	_record->port = HotlineReadUInt16(header + 4);
	_record->users = HotlineReadUInt16(header + 6);
	fPosition += kNameLengthOffset;
	return _ReadText(_record->name) && _ReadText(_record->description);
}


/*!	Reads a length byte and as many bytes of text.
	\param text Receives up to 256 bytes: the text and its terminator.
	\return \c false if either is cut.
*/
bool
TrackerListing::_ReadText(char* text)
{
	if (fPosition >= fSize)
		return false;
	const size_t length = fBytes[fPosition];
	if (fSize - fPosition - 1 < length)
		return false;

	memcpy(text, fBytes + fPosition + 1, length);
	text[length] = '\0';
	fPosition += 1 + length;
	return true;
}


/*!	\param buffer Receives kTrackerRequestSize bytes. */
void
TrackerListing::BuildRequest(uint8* buffer)
{
	static const uint16 kVersion = 1;

	HotlineWriteUInt32(buffer, kMagic);
	HotlineWriteUInt16(buffer + 4, kVersion);
}


/*!	\param header The kTrackerHeaderSize bytes of an answer.
	\param _listingSize Receives the bytes that follow; 0 where the tracker does not say.
	\param _serverCount Receives how many records to read; 0 for as many as there are.
	\return \c false if this is no tracker's answer.
*/
bool
TrackerListing::ReadHeader(const uint8* header, size_t* _listingSize, uint16* _serverCount)
{
	if (HotlineReadUInt32(header) != kMagic)
		return false;

	const size_t messageSize = HotlineReadUInt16(header + 8);
	*_listingSize = messageSize >= kCountsSize ? messageSize - kCountsSize : 0;
	*_serverCount = HotlineReadUInt16(header + 10);
	return true;
}


/*!	Takes a host with or without a port apart. What is no port stays part of the host, which no
	resolver knows then.
	\param _host Receives the host.
	\return The port; the trackers' own one if there is no valid one behind the last colon.
*/
uint16
TrackerListing::SplitAddress(const char* address, BString* _host)
{
	*_host = address;

	const char* colon = strrchr(address, ':');
	if (colon == NULL || colon == address)
		return kTrackerPort;

	// Unlike atoi() this has an answer for every number, however long.
	const long port = strtol(colon + 1, NULL, 10);
	if (port < 1 || port > 65535)
		return kTrackerPort;

	_host->Truncate(static_cast<int32>(colon - address));
	return static_cast<uint16>(port);
}
