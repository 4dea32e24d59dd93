/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransactionParser.h"

#include <cstdlib>

#include "HotlineProtocol.h"


// In bytes.
static const uint32 kSlackSize = 16;
static const uint32 kIdleBufferSize = kHeaderSize + kSlackSize;


static int32
state_for_type(uint32 type)
{
	switch (type) {
		case kSrvChat:
			return TransactionParser::kStateChat;
		case kSrvMsg:
			return TransactionParser::kStateMessage;
		case kSrvUserChange:
			return TransactionParser::kStateUserChange;
		case kSrvUserLeave:
			return TransactionParser::kStateUserLeave;
		case kSrvTask:
			return TransactionParser::kStateTask;
		case kSrvNewsPost:
			return TransactionParser::kStateNewsPost;
		case kSrvAgreement:
			return TransactionParser::kStateAgreement;
		case kSrvPoliteQuit:
			return TransactionParser::kStatePoliteQuit;
		case kSrvBroadcast:
			return TransactionParser::kStateBroadcast;
		case kSrvServerBanner:
			return TransactionParser::kStateServerBanner;
		default:
			return TransactionParser::kStateUnknown;
	}
}


TransactionParser::TransactionParser()
	: fBuffer(NULL),
	  fBufferSize(0),
	  fBufferPos(0),
	  fBufferNeeded(0),
	  fParseState(kStateHeader)
{
	Reset();
}


TransactionParser::~TransactionParser()
{
	free(fBuffer);
}


/*!	Forgets what was read and waits for a header, in a buffer of 38 bytes.
	\return \c false when there is no memory for it: then there is no Room().
*/
bool
TransactionParser::Reset()
{
	fBufferPos = 0;
	fBufferNeeded = kHeaderSize;
	fParseState = kStateHeader;
	// A block that cannot shrink will do.
	return fBufferSize == kIdleBufferSize || _Resize(kIdleBufferSize) || fBuffer != NULL;
}


/*!	Takes note of bytes that were put to Room().
	\param length At most BytesNeeded().
*/
TransactionParser::Result
TransactionParser::Advance(uint32 length)
{
	fBufferPos += length;
	fBufferNeeded -= length;
	if (fBufferNeeded > 0)
		return kNeedsMore;
	if (fParseState == kStateHeader)
		return _ProcessHeader();
	return kComplete;
}


/*!	The id of the request that a reply answers. */
uint32
TransactionParser::TransID() const
{
	return HotlineReadUInt32(fBuffer + 4);
}


/*!	0 where a reply tells of success. */
uint32
TransactionParser::ErrorCode() const
{
	return HotlineReadUInt32(fBuffer + 8);
}


ParameterWalker
TransactionParser::Params() const
{
	return ParameterWalker(fBuffer + kHeaderSize, fBufferPos - kHeaderSize);
}


TransactionParser::Result
TransactionParser::_ProcessHeader()
{
	HotlineHeader header;
	HotlineReadHeader(fBuffer, &header);
	if (header.totalSize > kMaxTransactionSize)
		return kFailed;

	// The number of parameters has been read with the header. An impossible size is taken as it is.
	uint32 payloadLength = header.totalSize;
	if (payloadLength >= sizeof(uint16))
		payloadLength -= static_cast<uint32>(sizeof(uint16));
	if (payloadLength == 0)
		return Reset() ? kNeedsMore : kFailed;

	if (!_Resize(kHeaderSize + payloadLength + kSlackSize))
		return kFailed;
	fBufferNeeded = payloadLength;
	fParseState = state_for_type(header.type);
	return kNeedsMore;
}


/*!	Gives the buffer another size; on failure it stays as it was. */
bool
TransactionParser::_Resize(uint32 size)
{
	uint8* buffer = static_cast<uint8*>(realloc(fBuffer, size));
	if (buffer == NULL)
		return false;
	fBuffer = buffer;
	fBufferSize = size;
	return true;
}
