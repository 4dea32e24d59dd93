/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Statable.h>


BStatable::~BStatable() = default;


bool
BStatable::IsFile() const
{
	struct stat info;
	return GetStat(&info) == B_OK && S_ISREG(info.st_mode);
}


bool
BStatable::IsDirectory() const
{
	struct stat info;
	return GetStat(&info) == B_OK && S_ISDIR(info.st_mode);
}


bool
BStatable::IsSymLink() const
{
	struct stat info;
	return GetStat(&info) == B_OK && S_ISLNK(info.st_mode);
}


/*!	In bytes. */
status_t
BStatable::GetSize(off_t* _size) const
{
	struct stat info;
	status_t status = GetStat(&info);
	if (status == B_OK)
		*_size = info.st_size;
	return status;
}
