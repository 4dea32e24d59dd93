/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <DataIO.h>

#include <algorithm>
#include <cstdio>
#include <cstring>


BDataIO::BDataIO() = default;
BDataIO::~BDataIO() = default;


/*!	Reads until \a size bytes are there. \c B_PARTIAL_READ when they end before. */
status_t
BDataIO::ReadExactly(void* buffer, size_t size, size_t* _bytesRead)
{
	size_t done = 0;
	status_t status = B_OK;
	while (done < size) {
		ssize_t count = Read(static_cast<uint8*>(buffer) + done, size - done);
		if (count <= 0) {
			status = count < 0 ? status_t(count) : B_PARTIAL_READ;
			break;
		}
		done += size_t(count);
	}

	if (_bytesRead != NULL)
		*_bytesRead = done;
	return status;
}


status_t
BDataIO::WriteExactly(const void* buffer, size_t size, size_t* _bytesWritten)
{
	size_t done = 0;
	status_t status = B_OK;
	while (done < size) {
		ssize_t count = Write(static_cast<const uint8*>(buffer) + done, size - done);
		if (count <= 0) {
			status = count < 0 ? status_t(count) : B_PARTIAL_WRITE;
			break;
		}
		done += size_t(count);
	}

	if (_bytesWritten != NULL)
		*_bytesWritten = done;
	return status;
}


// #pragma mark - BPositionIO


BPositionIO::BPositionIO() = default;
BPositionIO::~BPositionIO() = default;


ssize_t
BPositionIO::Read(void* buffer, size_t size)
{
	off_t position = Position();
	ssize_t count = ReadAt(position, buffer, size);
	if (count > 0)
		Seek(position + count, SEEK_SET);
	return count;
}


ssize_t
BPositionIO::Write(const void* buffer, size_t size)
{
	off_t position = Position();
	ssize_t count = WriteAt(position, buffer, size);
	if (count > 0)
		Seek(position + count, SEEK_SET);
	return count;
}


status_t
BPositionIO::SetSize(off_t /*size*/)
{
	return B_ERROR;
}


/*!	Finds the size by going to the end and back. */
status_t
BPositionIO::GetSize(off_t* _size) const
{
	if (_size == NULL)
		return B_BAD_VALUE;

	BPositionIO* self = const_cast<BPositionIO*>(this);
	off_t position = Position();
	off_t size = self->Seek(0, SEEK_END);
	if (size < 0)
		return status_t(size);

	*_size = size;
	off_t back = self->Seek(position, SEEK_SET);
	return back < 0 ? status_t(back) : B_OK;
}


// #pragma mark - BMemoryIO


BMemoryIO::BMemoryIO(void* data, size_t length)
	: fReadable(static_cast<const uint8*>(data)),
	  fWritable(static_cast<uint8*>(data)),
	  fLength(length),
	  fCapacity(length),
	  fPosition(0)
{
}


BMemoryIO::BMemoryIO(const void* data, size_t length)
	: fReadable(static_cast<const uint8*>(data)),
	  fWritable(NULL),
	  fLength(length),
	  fCapacity(length),
	  fPosition(0)
{
}


BMemoryIO::~BMemoryIO() = default;


/*!	The number of bytes read, 0 behind the end. */
ssize_t
BMemoryIO::ReadAt(off_t position, void* buffer, size_t size)
{
	if (buffer == NULL || position < 0)
		return B_BAD_VALUE;
	if (size_t(position) >= fLength)
		return 0;

	size = std::min(size, fLength - size_t(position));
	memcpy(buffer, fReadable + position, size);
	return ssize_t(size);
}


/*!	Writes what fits; \c B_NOT_ALLOWED where the memory is const. */
ssize_t
BMemoryIO::WriteAt(off_t position, const void* buffer, size_t size)
{
	if (fWritable == NULL)
		return B_NOT_ALLOWED;
	if (buffer == NULL || position < 0)
		return B_BAD_VALUE;
	if (size_t(position) >= fCapacity)
		return 0;

	size = std::min(size, fCapacity - size_t(position));
	memcpy(fWritable + position, buffer, size);
	fLength = std::max(fLength, size_t(position) + size);
	return ssize_t(size);
}


off_t
BMemoryIO::Seek(off_t position, uint32 seekMode)
{
	off_t base = 0;
	if (seekMode == SEEK_CUR)
		base = fPosition;
	else if (seekMode == SEEK_END)
		base = off_t(fLength);
	else if (seekMode != SEEK_SET)
		return B_BAD_VALUE;

	off_t target;
	if (__builtin_add_overflow(base, position, &target) || target < 0)
		return B_BAD_VALUE;

	fPosition = target;
	return target;
}


/*!	The size may shrink, and grow again up to that of the memory. */
status_t
BMemoryIO::SetSize(off_t size)
{
	if (fWritable == NULL)
		return B_NOT_ALLOWED;
	if (size < 0 || size_t(size) > fCapacity)
		return B_ERROR;

	fLength = size_t(size);
	return B_OK;
}
