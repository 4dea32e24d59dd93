/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransactionBuilder.h"

#include <cassert>
#include <cstring>

#include "HotlineProtocol.h"


/*!	\param size The bytes of the buffer, at least \c kHeaderSize. */
TransactionBuilder::TransactionBuilder(uint8* buffer, size_t size)
	: fBuffer(buffer),
	  fCapacity(size),
	  fSize(kHeaderSize),
	  fDataLength(sizeof(uint16)),
	  fCount(0)
{
}


/*!	Adds a parameter with a copy of its value. */
bool
TransactionBuilder::BuildParam(uint16 type, const void* data, uint16 len)
{
	if (fCapacity - fSize < kParamHeaderSize + len || !BuildParamHeader(type, len))
		return false;

	if (data != NULL && len > 0)
		memcpy(fBuffer + fSize, data, len);
	fSize += len;
	return true;
}


bool
TransactionBuilder::BuildParamInt16(uint16 type, uint16 value)
{
	uint8 bytes[2];
	HotlineWriteUInt16(bytes, value);
	return BuildParam(type, bytes, sizeof(bytes));
}


bool
TransactionBuilder::BuildParamInt32(uint16 type, uint32 value)
{
	uint8 bytes[4];
	HotlineWriteUInt32(bytes, value);
	return BuildParam(type, bytes, sizeof(bytes));
}


/*!	Announces a parameter whose \a len bytes are sent from elsewhere, after what stands in the
	buffer so far.
*/
bool
TransactionBuilder::BuildParamHeader(uint16 type, uint16 len)
{
	if (fCapacity - fSize < kParamHeaderSize)
		return false;

	HotlineWriteUInt16(fBuffer + fSize, type);
	HotlineWriteUInt16(fBuffer + fSize + 2, len);
	fSize += kParamHeaderSize;
	fDataLength += kParamHeaderSize + len;
	fCount++;
	return true;
}


// #pragma mark -


TransactionPieces::TransactionPieces()
	: fCount(0)
{
}


TransactionPieces::TransactionPieces(const void* data, size_t size)
	: fCount(0)
{
	Add(data, size);
}


/*!	There is room for as many pieces as the longest request has. */
void
TransactionPieces::Add(const void* data, size_t size)
{
	assert(fCount < kMaxPieces);
	fData[fCount] = data;
	fSizes[fCount] = size;
	fCount++;
}
