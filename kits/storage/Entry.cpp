/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Entry.h>

#include <cerrno>
#include <cstring>

#include <Errno.h>
#include <Path.h>
#include <PathResolution.h>


static const int kMaxLinks = 16;


BEntry::BEntry()
	: fStatus(B_NO_INIT)
{
}


BEntry::BEntry(const entry_ref* ref, bool traverse)
	: fStatus(B_BAD_VALUE)
{
	if (ref == NULL || ref->name == NULL)
		return;

	if (ref->fDirectoryPath == NULL)
		fStatus = B_ENTRY_NOT_FOUND;
	else
		_SetTo(join_path(ref->fDirectoryPath, ref->name), traverse);
}


/*!	The path's directory must exist, the entry need not.
	\param traverse To follow links, to the end.
*/
BEntry::BEntry(const char* path, bool traverse)
	: fStatus(B_BAD_VALUE)
{
	if (path != NULL)
		_SetTo(path, traverse);
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
	if (lstat(join_path(fDirectory, fName).c_str(), _stat) != 0)
		return status_for_errno(errno);

	return B_OK;
}


status_t
BEntry::GetRef(entry_ref* ref) const
{
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
	if (fStatus != B_OK)
		return B_NO_INIT;

	*path = BPath(join_path(fDirectory, fName).c_str());
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
		current = join_path(fDirectory, std::string(target, static_cast<size_t>(length)));
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
