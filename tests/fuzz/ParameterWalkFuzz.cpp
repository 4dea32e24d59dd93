/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cstdint>
#include <cstdlib>

#include "EntryReader.h"
#include "HotlineProtocol.h"
#include "ParameterWalker.h"


static void
require(bool condition)
{
	if (!condition)
		abort();
}


/*!	Reads one parameter in every way in which a handler reads one. */
static void
read_values(const HotlineParam& param)
{
	uint16 small = 0;
	uint32 large = 0;
	uint32 number = 0;
	BString text;
	ReadParamUInt16(param, &small);
	ReadParamUInt32(param, &large);
	ReadParamNumber(param, &number);
	ReadParamText(param, &text);
	require(text.Length() <= param.len);
	ReadParamText(param, 63, &text);
	require(text.Length() <= 63 && text.Length() <= param.len);
	require(number == (param.len >= 4 ? large : small));

	UserEntry user;
	if (ReadUserEntry(param, &user))
		require(user.nick.Length() <= 63 && user.nick.Length() <= param.len - 8);
	FileEntry file;
	if (ReadFileEntry(param, &file)) {
		require(file.name.Length() <= 255 && file.name.Length() <= param.len - 20);
		require(file.type.Length() <= 4 && file.creator.Length() <= 4);
	}
}


extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	ParameterWalker walker(data, size);
	HotlineParam param;
	size_t position = 0;
	while (walker.Next(&param)) {
		// They follow one another, and the last one ends inside.
		require(param.data == data + position + kParamHeaderSize);
		position += kParamHeaderSize + param.len;
		require(position <= size);
		require(param.type == HotlineReadUInt16(param.data - kParamHeaderSize));
		read_values(param);
	}

	// What is left is no whole parameter.
	const size_t left = size - position;
	require(left < kParamHeaderSize
		|| left - kParamHeaderSize < HotlineReadUInt16(data + position + 2));
	return 0;
}
