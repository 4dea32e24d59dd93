/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <DataIO.h>

#include <algorithm>
#include <cstring>


BDataIO::~BDataIO() = default;


// #pragma mark - BMemoryIO


BMemoryIO::BMemoryIO(const void* data, size_t length)
	: fBytes(static_cast<const uint8*>(data)),
	  fLength(length),
	  fPosition(0)
{
}


/*!	The number of bytes read, 0 behind the end. */
ssize_t
BMemoryIO::Read(void* buffer, size_t size)
{
	size = std::min(size, fLength - fPosition);
	memcpy(buffer, fBytes + fPosition, size);
	fPosition += size;
	return static_cast<ssize_t>(size);
}


ssize_t
BMemoryIO::Write(const void* /*buffer*/, size_t /*size*/)
{
	return B_NOT_ALLOWED;
}
