/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "HotlineProtocol.h"


const char kClientMagic[13] = "TRTPHOTL\0\1\0\2";
const uint8 kServerMagic[8] = {'T', 'R', 'T', 'P', 0, 0, 0, 0};


uint16
HotlineReadUInt16(const uint8* bytes)
{
	return static_cast<uint16>(bytes[0] << 8 | bytes[1]);
}


uint32
HotlineReadUInt32(const uint8* bytes)
{
	return static_cast<uint32>(bytes[0]) << 24 | static_cast<uint32>(bytes[1]) << 16
		| static_cast<uint32>(bytes[2]) << 8 | static_cast<uint32>(bytes[3]);
}


void
HotlineWriteUInt16(uint8* bytes, uint16 value)
{
	bytes[0] = static_cast<uint8>(value >> 8);
	bytes[1] = static_cast<uint8>(value);
}


void
HotlineWriteUInt32(uint8* bytes, uint32 value)
{
	bytes[0] = static_cast<uint8>(value >> 24);
	bytes[1] = static_cast<uint8>(value >> 16);
	bytes[2] = static_cast<uint8>(value >> 8);
	bytes[3] = static_cast<uint8>(value);
}


/*!	Takes a header apart.
	\param bytes \c kHeaderSize bytes.
*/
void
HotlineReadHeader(const uint8* bytes, HotlineHeader* _header)
{
	_header->type = HotlineReadUInt32(bytes);
	_header->trans = HotlineReadUInt32(bytes + 4);
	_header->flags = HotlineReadUInt32(bytes + 8);
	_header->totalSize = HotlineReadUInt32(bytes + 12);
	_header->dataSize = HotlineReadUInt32(bytes + 16);
	_header->paramCount = HotlineReadUInt16(bytes + 20);
}


/*!	Puts a header together.
	\param bytes Receives \c kHeaderSize bytes.
*/
void
HotlineWriteHeader(uint8* bytes, const HotlineHeader& header)
{
	HotlineWriteUInt32(bytes, header.type);
	HotlineWriteUInt32(bytes + 4, header.trans);
	HotlineWriteUInt32(bytes + 8, header.flags);
	HotlineWriteUInt32(bytes + 12, header.totalSize);
	HotlineWriteUInt32(bytes + 16, header.dataSize);
	HotlineWriteUInt16(bytes + 20, header.paramCount);
}


/*!	Turns a login or a password into its form on the wire, or back: each byte becomes its
	complement.
*/
void
HotlineEncodeCredential(uint8* data, uint32 len)
{
	for (uint32 i = 0; i < len; i++)
		data[i] = static_cast<uint8>(~data[i]);
}


/*!	Turns every carriage return into a line feed. Nothing is removed: a CR LF pair becomes two line
	feeds.
*/
void
HotlineCR2LF(char* text, uint32 len)
{
	for (uint32 i = 0; i < len; i++) {
		if (text[i] == '\r')
			text[i] = '\n';
	}
}


/*!	How many of the first bytes of a UTF-8 text fit, without taking a character apart. Where the
	bytes at the limit are no character, the limit itself.
	\param length The bytes of the text.
	\param limit The most bytes that may be used.
*/
size_t
HotlineCutText(const char* text, size_t length, size_t limit)
{
	if (length <= limit)
		return length;

	// A character has at most three continuation bytes behind its first one.
	size_t start = limit;
	while (start > 0 && limit - start < 3 && (text[start] & 0xc0) == 0x80)
		start--;
	if ((text[start] & 0xc0) == 0xc0 || start == limit)
		return start;
	return limit;
}
