/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Entry.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <Directory.h>
#include <ErrnoPrivate.h>
#include <Path.h>
#include <PathPrivate.h>


namespace {


const int kMaxLinks = 16;


} // namespace


BEntry::BEntry()
	: fStatus(B_NO_INIT)
{
}


BEntry::BEntry(const BDirectory* directory, const char* path, bool traverse)
	: BEntry()
{
	SetTo(directory, path, traverse);
}


BEntry::BEntry(const entry_ref* ref, bool traverse)
	: BEntry()
{
	SetTo(ref, traverse);
}


BEntry::BEntry(const char* path, bool traverse)
	: BEntry()
{
	SetTo(path, traverse);
}


BEntry::~BEntry() = default;


bool
BEntry::operator==(const BEntry& other) const
{
	if (fStatus != B_OK || other.fStatus != B_OK)
		return fStatus != B_OK && other.fStatus != B_OK;

	return fDirectory == other.fDirectory && fName == other.fName;
}


bool
BEntry::operator!=(const BEntry& other) const
{
	return !(*this == other);
}


/*!	Whether there is something of that name, be it a link that leads nowhere. */
bool
BEntry::Exists() const
{
	struct stat info;
	return GetStat(&info) == B_OK;
}


/*!	Of a link itself, unless it was traversed when the entry was set. */
status_t
BEntry::GetStat(struct stat* _stat) const
{
	if (fStatus != B_OK)
		return B_NO_INIT;
	if (_stat == NULL)
		return B_BAD_VALUE;
	if (lstat(join_path(fDirectory, fName).c_str(), _stat) != 0)
		return status_for_errno(errno);

	return B_OK;
}


/*!	Belongs to the entry. NULL when it is not set; "/" for the root directory. */
const char*
BEntry::Name() const
{
	if (fStatus != B_OK)
		return NULL;

	return fName.empty() ? "/" : fName.c_str();
}


/*!	A relative path starts at the directory. NULL means the directory itself. */
status_t
BEntry::SetTo(const BDirectory* directory, const char* path, bool traverse)
{
	Unset();
	if (directory == NULL)
		return fStatus = B_BAD_VALUE;
	if (directory->InitCheck() != B_OK)
		return fStatus = B_BAD_VALUE;
	if (path != NULL && path[0] == 0)
		return fStatus = B_ENTRY_NOT_FOUND;

	return _SetTo(directory->_Resolve(path != NULL ? path : "."), traverse);
}


status_t
BEntry::SetTo(const entry_ref* ref, bool traverse)
{
	Unset();
	if (ref == NULL || ref->name == NULL)
		return fStatus = B_BAD_VALUE;
	if (ref->fDirectoryPath == NULL)
		return fStatus = B_ENTRY_NOT_FOUND;

	return _SetTo(join_path(ref->fDirectoryPath, ref->name), traverse);
}


/*!	The path's directory must exist, the entry need not.
	\param traverse To follow links, to the end.
*/
status_t
BEntry::SetTo(const char* path, bool traverse)
{
	Unset();
	if (path == NULL)
		return fStatus = B_BAD_VALUE;

	return _SetTo(path, traverse);
}


void
BEntry::Unset()
{
	fDirectory.clear();
	fName.clear();
	fStatus = B_NO_INIT;
}


status_t
BEntry::GetRef(entry_ref* ref) const
{
	if (ref == NULL)
		return B_BAD_VALUE;
	if (fStatus != B_OK)
		return B_NO_INIT;

	struct stat info;
	if (stat(fDirectory.c_str(), &info) != 0)
		return status_for_errno(errno);

	entry_ref result;
	result.device = info.st_dev;
	result.directory = info.st_ino;
	result.set_name(fName.empty() ? "." : fName.c_str());
	result.fDirectoryPath = strdup(fDirectory.c_str());
	*ref = result;
	return B_OK;
}


status_t
BEntry::GetPath(BPath* path) const
{
	return path != NULL ? path->SetTo(this) : B_BAD_VALUE;
}


/*!	\return \c B_ENTRY_NOT_FOUND for the root directory. */
status_t
BEntry::GetParent(BEntry* entry) const
{
	if (entry == NULL)
		return B_BAD_VALUE;
	if (fStatus != B_OK)
		return B_NO_INIT;
	if (fName.empty())
		return B_ENTRY_NOT_FOUND;

	// A copy, because the entry may be this one.
	std::string directory = fDirectory;
	return entry->_SetTo(directory, false);
}


status_t
BEntry::GetParent(BDirectory* directory) const
{
	if (directory == NULL)
		return B_BAD_VALUE;
	if (fStatus != B_OK)
		return B_NO_INIT;
	if (fName.empty())
		return B_ENTRY_NOT_FOUND;

	return directory->SetTo(fDirectory.c_str());
}


/*!	\a buffer must have room for \c B_FILE_NAME_LENGTH bytes. */
status_t
BEntry::GetName(char* buffer) const
{
	if (buffer == NULL)
		return B_BAD_VALUE;
	if (fStatus != B_OK) {
		buffer[0] = 0;
		return B_NO_INIT;
	}

	const char* name = Name();
	memcpy(buffer, name, strlen(name) + 1);
	return B_OK;
}


/*!	Moves the entry, which is then the new one. A relative path starts at its directory.
	\param clobber To replace what is there; else that is \c B_FILE_EXISTS.
*/
status_t
BEntry::Rename(const char* path, bool clobber)
{
	if (path == NULL)
		return B_BAD_VALUE;
	if (fStatus != B_OK)
		return B_NO_INIT;

	BEntry target;
	status_t status = target._SetTo(join_path(fDirectory, path), false);
	if (status != B_OK)
		return status;

	unsigned int flags = clobber ? 0 : RENAME_NOREPLACE;
	std::string from = join_path(fDirectory, fName);
	std::string to = join_path(target.fDirectory, target.fName);
	if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), flags) != 0)
		return status_for_errno(errno);

	*this = target;
	return B_OK;
}


/*!	A directory must be empty. */
status_t
BEntry::Remove()
{
	if (fStatus != B_OK)
		return B_NO_INIT;
	if (remove(join_path(fDirectory, fName).c_str()) != 0)
		return status_for_errno(errno);

	return B_OK;
}


status_t
BEntry::_SetTo(const std::string& path, bool traverse)
{
	std::string current = path;
	for (int links = 0; links <= kMaxLinks; links++) {
		fStatus = resolve_entry(current, &fDirectory, &fName);
		if (fStatus != B_OK || !traverse || !IsSymLink())
			return fStatus;

		char target[PATH_MAX];
		ssize_t length = readlink(join_path(fDirectory, fName).c_str(), target, sizeof(target));
		if (length < 0)
			return fStatus = status_for_errno(errno);
		current = join_path(fDirectory, std::string(target, size_t(length)));
	}
	return fStatus = B_LINK_LIMIT;
}


// #pragma mark - other ways to a reference


status_t
get_ref_for_path(const char* path, entry_ref* ref)
{
	BEntry entry(path);
	return entry.InitCheck() == B_OK ? entry.GetRef(ref) : entry.InitCheck();
}
