/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransactionBuilder.h"

#include <cstring>

#include "HotlineProtocol.h"


TransactionBuilder::TransactionBuilder()
	: fSize(kHeaderSize),
	  fDataLength(sizeof(uint16)),
	  fParamCount(0),
	  fPieceCount(1),
	  fIsPieceOpen(true)
{
	fPieces[0] = {fBuffer, kHeaderSize};
}


/*!	Adds a parameter with a copy of its value. */
bool
TransactionBuilder::BuildParam(uint16 type, const void* data, uint16 len)
{
	if (!_Fits(kParamHeaderSize + len, fIsPieceOpen ? 0 : 1))
		return false;
	_AppendParamHeader(type, len);
	_Append(data, len);
	return true;
}


bool
TransactionBuilder::BuildParamInt16(uint16 type, uint16 value)
{
	uint8 bytes[2];
	HotlineWriteUInt16(bytes, value);
	return BuildParam(type, bytes, sizeof(bytes));
}


/*!	Adds a parameter whose \a len bytes are sent from \a data. */
bool
TransactionBuilder::BorrowParam(uint16 type, const void* data, uint16 len)
{
	if (!_Fits(kParamHeaderSize, fIsPieceOpen ? 1 : 2))
		return false;
	_AppendParamHeader(type, len);
	fPieces[fPieceCount++] = {data, len};
	fIsPieceOpen = false;
	return true;
}


bool
TransactionBuilder::_Fits(size_t size, int32 pieces) const
{
	return size <= kCapacity - fSize && pieces <= kMaxPieces - fPieceCount;
}


void
TransactionBuilder::_Append(const void* data, size_t size)
{
	if (size == 0)
		return;
	if (!fIsPieceOpen)
		fPieces[fPieceCount++] = {fBuffer + fSize, 0};
	fIsPieceOpen = true;
	fPieces[fPieceCount - 1].size += size;
	memcpy(fBuffer + fSize, data, size);
	fSize += size;
}


void
TransactionBuilder::_AppendParamHeader(uint16 type, uint16 len)
{
	uint8 bytes[kParamHeaderSize];
	HotlineWriteUInt16(bytes, type);
	HotlineWriteUInt16(bytes + 2, len);
	_Append(bytes, sizeof(bytes));
	fDataLength += kParamHeaderSize + len;
	fParamCount++;
}
