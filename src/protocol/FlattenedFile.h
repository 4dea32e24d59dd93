/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FLATTENED_FILE_H
#define FLATTENED_FILE_H


#include <cstddef>

#include <SupportDefs.h>


// The request that opens a transfer connection, and the parts of the file object that travels on
// it, in bytes.
static const size_t kTransferRequestSize = 16;
static const size_t kFileObjectHeaderSize = 24;
static const size_t kForkHeaderSize = 16;
static const size_t kInformationForkBaseSize = 74;
static const size_t kMaxInformationForkName = 128;
static const size_t kMaxInformationForkSize = kInformationForkBaseSize + kMaxInformationForkName;


/*!	What a sender writes on a transfer connection: the request that identifies the transfer, and the
	flattened file object, a header followed by an information fork and a data fork, each a fork
	header and its data. All integers are big-endian. Every function writes to a buffer that its
	caller owns, and may be called on any thread.
*/
class FlattenedFile {
public:
	static void BuildTransferRequest(uint8* buffer, uint32 reference, uint32 dataSize);
	static void BuildHeader(uint8* buffer);
	static void BuildInformationForkHeader(uint8* buffer, size_t nameLength);
	static size_t BuildInformationFork(uint8* buffer, const char* name, size_t nameLength);
	static void BuildDataForkHeader(uint8* buffer, uint32 size);

	static size_t InformationForkSize(size_t nameLength);
	static uint32 TotalSize(size_t nameLength, int64 fileSize);
};


#endif // FLATTENED_FILE_H
