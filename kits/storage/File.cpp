/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <File.h>

#include <cerrno>

#include <Errno.h>


static ssize_t
count_or_error(ssize_t count)
{
	return count >= 0 ? count : status_for_errno(errno);
}


/*!	\a openMode is one of reading, writing or both, and what else is wanted: see StorageDefs.h. A
	directory is no file: \c B_IS_A_DIRECTORY.
*/
BFile::BFile(const char* path, uint32 openMode)
{
	if (_Open(path, static_cast<int>(openMode)) == B_OK && IsDirectory())
		_SetError(B_IS_A_DIRECTORY);
}


/*!	The number of bytes read, 0 at the end. */
ssize_t
BFile::Read(void* buffer, size_t size)
{
	if (InitCheck() != B_OK)
		return B_NO_INIT;

	return count_or_error(read(_Descriptor(), buffer, size));
}


ssize_t
BFile::Write(const void* buffer, size_t size)
{
	if (InitCheck() != B_OK)
		return B_NO_INIT;

	return count_or_error(write(_Descriptor(), buffer, size));
}
