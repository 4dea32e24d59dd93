/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Directory.h>

#include <cerrno>
#include <cstring>

#include <Entry.h>
#include <ErrnoPrivate.h>
#include <File.h>
#include <Path.h>
#include <PathPrivate.h>


BDirectory::BDirectory()
	: fWalk(NULL)
{
}


BDirectory::BDirectory(const entry_ref* ref)
	: BDirectory()
{
	SetTo(ref);
}


BDirectory::BDirectory(const BEntry* entry)
	: BDirectory()
{
	SetTo(entry);
}


BDirectory::BDirectory(const char* path)
	: BDirectory()
{
	SetTo(path);
}


BDirectory::BDirectory(const BDirectory* directory, const char* path)
	: BDirectory()
{
	SetTo(directory, path);
}


BDirectory::~BDirectory()
{
	Unset();
}


status_t
BDirectory::SetTo(const entry_ref* ref)
{
	BPath path(ref);
	Unset();
	return path.InitCheck() == B_OK ? _SetTo(path.Path()) : _SetError(path.InitCheck());
}


status_t
BDirectory::SetTo(const BEntry* entry)
{
	BPath path(entry);
	Unset();
	return path.InitCheck() == B_OK ? _SetTo(path.Path()) : _SetError(path.InitCheck());
}


/*!	\return \c B_NOT_A_DIRECTORY for anything else that exists. */
status_t
BDirectory::SetTo(const char* path)
{
	if (path == NULL) {
		Unset();
		return _SetError(B_BAD_VALUE);
	}
	// A copy, because the path may be this directory's own.
	return _SetTo(std::string(path));
}


status_t
BDirectory::SetTo(const BDirectory* directory, const char* path)
{
	if (directory == NULL || path == NULL || directory->InitCheck() != B_OK) {
		Unset();
		return _SetError(B_BAD_VALUE);
	}
	return _SetTo(directory->_Resolve(path));
}


void
BDirectory::Unset()
{
	if (fWalk != NULL)
		closedir(fWalk);
	fWalk = NULL;
	fPath.clear();
	BNode::Unset();
}


status_t
BDirectory::GetEntry(BEntry* entry) const
{
	if (entry == NULL)
		return B_BAD_VALUE;
	if (InitCheck() != B_OK)
		return B_NO_INIT;

	return entry->SetTo(fPath.c_str());
}


/*!	\return \c B_ENTRY_NOT_FOUND when nothing of that name exists. */
status_t
BDirectory::FindEntry(const char* path, BEntry* entry, bool traverse) const
{
	if (path == NULL || entry == NULL)
		return B_BAD_VALUE;

	status_t status = entry->SetTo(this, path, traverse);
	if (status == B_OK && !entry->Exists()) {
		entry->Unset();
		status = B_ENTRY_NOT_FOUND;
	}
	return status;
}


bool
BDirectory::Contains(const char* path, int32 nodeFlags) const
{
	BEntry entry;
	if (FindEntry(path, &entry) != B_OK)
		return false;
	if (nodeFlags == B_ANY_NODE)
		return true;

	return ((nodeFlags & B_FILE_NODE) != 0 && entry.IsFile())
		|| ((nodeFlags & B_DIRECTORY_NODE) != 0 && entry.IsDirectory())
		|| ((nodeFlags & B_SYMLINK_NODE) != 0 && entry.IsSymLink());
}


/*!	\return \c B_ENTRY_NOT_FOUND behind the last one. */
status_t
BDirectory::GetNextEntry(BEntry* entry, bool traverse)
{
	if (entry == NULL)
		return B_BAD_VALUE;

	std::string name;
	status_t status = _NextName(&name);
	if (status != B_OK) {
		entry->Unset();
		return status;
	}
	return entry->SetTo(join_path(fPath, name).c_str(), traverse);
}


status_t
BDirectory::GetNextRef(entry_ref* ref)
{
	if (ref == NULL)
		return B_BAD_VALUE;

	BEntry entry;
	status_t status = GetNextEntry(&entry);
	return status == B_OK ? entry.GetRef(ref) : status;
}


/*!	GetNextEntry() begins again. */
status_t
BDirectory::Rewind()
{
	if (InitCheck() != B_OK)
		return B_NO_INIT;

	if (fWalk != NULL)
		closedir(fWalk);
	fWalk = NULL;
	return B_OK;
}


/*!	Counts them all, and rewinds. */
int32
BDirectory::CountEntries()
{
	status_t status = Rewind();
	if (status != B_OK)
		return status;

	int32 count = 0;
	std::string name;
	while (_NextName(&name) == B_OK)
		count++;
	Rewind();
	return count;
}


/*!	Makes one directory; its own must exist.
	\param directory Is set to the new one, if it is not NULL.
	\return \c B_FILE_EXISTS when something of that name is there.
*/
status_t
BDirectory::CreateDirectory(const char* path, BDirectory* directory)
{
	if (path == NULL)
		return B_BAD_VALUE;

	// Without a directory of its own it works from the current one.
	std::string full = InitCheck() == B_OK ? _Resolve(path) : std::string(path);
	if (mkdir(full.c_str(), 0777) != 0)
		return status_for_errno(errno);

	return directory != NULL ? directory->SetTo(full.c_str()) : B_OK;
}


/*!	Makes an empty file, or empties the one that is there.
	\param file Is opened for reading and writing, if it is not NULL.
*/
status_t
BDirectory::CreateFile(const char* path, BFile* file, bool failIfExists)
{
	if (path == NULL)
		return B_BAD_VALUE;

	std::string full = InitCheck() == B_OK ? _Resolve(path) : std::string(path);
	uint32 mode = B_READ_WRITE | B_CREATE_FILE | (failIfExists ? B_FAIL_IF_EXISTS : B_ERASE_FILE);
	BFile local;
	return (file != NULL ? file : &local)->SetTo(full.c_str(), mode);
}


status_t
BDirectory::_SetTo(const std::string& path)
{
	Unset();
	std::string resolved;
	status_t status = resolve_path(path, &resolved);
	if (status == B_OK)
		status = _Open(resolved.c_str(), O_RDONLY | O_DIRECTORY);
	if (status != B_OK)
		return _SetError(status);

	fPath = resolved;
	return B_OK;
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


std::string
BDirectory::_Resolve(const char* path) const
{
	return join_path(fPath, path);
}


// #pragma mark - folders above it too


/*!	Makes a directory, and those above it that are missing. One that is there is left as it is. */
status_t
create_directory(const char* path, mode_t mode)
{
	if (path == NULL || path[0] == 0)
		return B_BAD_VALUE;

	std::string full = path;
	size_t slash = 0;
	do {
		slash = full.find('/', slash + 1);
		std::string part = full.substr(0, slash);
		if (mkdir(part.c_str(), mode) != 0 && errno != EEXIST)
			return status_for_errno(errno);
	} while (slash != std::string::npos);

	struct stat info;
	if (stat(path, &info) != 0)
		return status_for_errno(errno);

	return S_ISDIR(info.st_mode) ? B_OK : B_NOT_A_DIRECTORY;
}
