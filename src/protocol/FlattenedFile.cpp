/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FlattenedFile.h"

#include <algorithm>
#include <cstring>

#include "HotlineProtocol.h"


static void
build_fork_header(uint8* buffer, uint32 type, uint32 size)
{
	memset(buffer, 0, kForkHeaderSize);
	HotlineWriteUInt32(buffer, type);
	HotlineWriteUInt32(buffer + 12, size);
}


/*!	\param buffer Receives kTransferRequestSize bytes.
	\param reference The number that the server gave the transfer.
	\param dataSize The bytes that the client is going to send; 0 when it is to receive.
*/
void
FlattenedFile::BuildTransferRequest(uint8* buffer, uint32 reference, uint32 dataSize)
{
	HotlineWriteUInt32(buffer, 'HTXF');
	HotlineWriteUInt32(buffer + 4, reference);
	HotlineWriteUInt32(buffer + 8, dataSize);
	HotlineWriteUInt32(buffer + 12, 0);
}


/*!	\param buffer Receives kFileObjectHeaderSize bytes. */
void
FlattenedFile::BuildHeader(uint8* buffer)
{
	static const uint16 kVersion = 1;
	static const uint16 kForkCount = 2;

	memset(buffer, 0, kFileObjectHeaderSize);
	HotlineWriteUInt32(buffer, 'FILP');
	HotlineWriteUInt16(buffer + 4, kVersion);
	HotlineWriteUInt16(buffer + 22, kForkCount);
}


/*!	\param buffer Receives kForkHeaderSize bytes. */
void
FlattenedFile::BuildInformationForkHeader(uint8* buffer, size_t nameLength)
{
	build_fork_header(buffer, 'INFO', static_cast<uint32>(InformationForkSize(nameLength)));
}


/*!	Describes a file of unknown type and creator, without dates or comment.
	\param buffer Receives up to kMaxInformationForkSize bytes.
	\param nameLength In bytes; what exceeds kMaxInformationForkName is cut at that byte.
	\return The bytes written: InformationForkSize(nameLength).
*/
size_t
FlattenedFile::BuildInformationFork(uint8* buffer, const char* name, size_t nameLength)
{
	const size_t length = std::min(nameLength, kMaxInformationForkName);
	memset(buffer, 0, kInformationForkBaseSize + length);
	HotlineWriteUInt32(buffer, 'AMAC');
	memset(buffer + 4, '?', 8);
	HotlineWriteUInt16(buffer + 70, static_cast<uint16>(length));
	memcpy(buffer + 72, name, length);
	return kInformationForkBaseSize + length;
}


/*!	\param buffer Receives kForkHeaderSize bytes.
	\param size Of the file, its low 32 bits where it is larger.
*/
void
FlattenedFile::BuildDataForkHeader(uint8* buffer, uint32 size)
{
	build_fork_header(buffer, 'DATA', size);
}


/*!	The size of the information fork without its header, for a name of so many bytes. */
size_t
FlattenedFile::InformationForkSize(size_t nameLength)
{
	return kInformationForkBaseSize + std::min(nameLength, kMaxInformationForkName);
}


/*!	The size of the whole object. It wraps at 32 bits, as the protocol's fields do. */
uint32
FlattenedFile::TotalSize(size_t nameLength, int64 fileSize)
{
	return static_cast<uint32>(static_cast<uint64>(fileSize) + InformationForkSize(nameLength)
		+ kFileObjectHeaderSize + 2 * kForkHeaderSize);
}
