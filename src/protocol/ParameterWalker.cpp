/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ParameterWalker.h"

#include <String.h>

#include "HotlineProtocol.h"


/*!	\param bytes What stands behind the header.
	\param size How many bytes these are.
*/
ParameterWalker::ParameterWalker(const uint8* bytes, size_t size)
	: fBytes(bytes),
	  fSize(size),
	  fPosition(0)
{
}


/*!	Reads the next parameter and moves behind it.
	\return \c false at the end, and when the announced length exceeds what is left.
*/
bool
ParameterWalker::Next(HotlineParam* _param)
{
	const size_t left = fSize - fPosition;
	if (left < kParamHeaderSize)
		return false;

	const uint8* header = fBytes + fPosition;
	const uint16 length = HotlineReadUInt16(header + 2);
	if (left - kParamHeaderSize < length)
		return false;

	_param->type = HotlineReadUInt16(header);
	_param->len = length;
	_param->data = header + kParamHeaderSize;
	fPosition += kParamHeaderSize + length;
	return true;
}


// #pragma mark - Values


/*!	Takes the first two bytes of a value that has them. */
void
ReadParamUInt16(const HotlineParam& param, uint16* _value)
{
	if (param.len > 1)
		*_value = HotlineReadUInt16(param.data);
}


/*!	Takes the first four bytes of a value that has them. */
void
ReadParamUInt32(const HotlineParam& param, uint32* _value)
{
	if (param.len >= 4)
		*_value = HotlineReadUInt32(param.data);
}


/*!	Reads a user's or a chat's number, which servers send with four bytes or with two. */
void
ReadParamNumber(const HotlineParam& param, uint32* _value)
{
	if (param.len >= 4)
		*_value = HotlineReadUInt32(param.data);
	else if (param.len >= 2)
		*_value = HotlineReadUInt16(param.data);
}


/*!	Copies the bytes as they are; like every text in a message they end at the first zero byte. */
void
ReadParamText(const HotlineParam& param, BString* _text)
{
	_text->SetTo(reinterpret_cast<const char*>(param.data), param.len);
}


/*!	Copies at most \a limit bytes. */
void
ReadParamText(const HotlineParam& param, uint16 limit, BString* _text)
{
	_text->SetTo(reinterpret_cast<const char*>(param.data), min_c(param.len, limit));
}
