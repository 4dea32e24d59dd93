/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Directory.h>

#include <cerrno>
#include <cstring>

#include <Entry.h>
#include <Errno.h>
#include <PathResolution.h>


BDirectory::BDirectory()
	: fWalk(NULL)
{
}


/*!	\c B_NOT_A_DIRECTORY for anything else that exists. */
BDirectory::BDirectory(const char* path)
	: BDirectory()
{
	_SetTo(path);
}


BDirectory::~BDirectory()
{
	if (fWalk != NULL)
		closedir(fWalk);
}


/*!	\return \c B_ENTRY_NOT_FOUND behind the last one. */
status_t
BDirectory::GetNextEntry(BEntry* entry, bool traverse)
{
	std::string name;
	status_t status = _NextName(&name);
	if (status == B_OK)
		*entry = BEntry(join_path(fPath, name).c_str(), traverse);
	else
		*entry = BEntry();
	return status;
}


/*!	Makes one directory; its own must exist.
	\param directory A new one, which is set to it, or NULL.
	\return \c B_FILE_EXISTS when something of that name is there.
*/
status_t
BDirectory::CreateDirectory(const char* path, BDirectory* directory)
{
	// Without a directory of its own it works from the current one.
	const std::string full = join_path(fPath, path);
	if (mkdir(full.c_str(), 0777) != 0)
		return status_for_errno(errno);

	return directory != NULL ? directory->_SetTo(full.c_str()) : B_OK;
}


status_t
BDirectory::_SetTo(const char* path)
{
	if (path == NULL)
		return _SetError(B_BAD_VALUE);

	status_t status = resolve_path(path, &fPath);
	if (status == B_OK)
		status = _Open(fPath.c_str(), O_RDONLY | O_DIRECTORY);
	if (status == B_OK)
		return B_OK;

	fPath.clear();
	return _SetError(status);
}


status_t
BDirectory::_NextName(std::string* _name)
{
	if (InitCheck() != B_OK)
		return B_NO_INIT;

	if (fWalk == NULL)
		fWalk = opendir(fPath.c_str());
	if (fWalk == NULL)
		return status_for_errno(errno);

	// The walk is this object's own, so that readdir() is safe.
	errno = 0;
	dirent* entry = readdir(fWalk);
	while (entry != NULL && (strcmp(entry->d_name, ".") == 0 || strcmp(entry->d_name, "..") == 0))
		entry = readdir(fWalk);
	if (entry == NULL)
		return errno != 0 ? status_for_errno(errno) : B_ENTRY_NOT_FOUND;

	*_name = entry->d_name;
	return B_OK;
}
