/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Path.h>

#include <algorithm>

#include <Directory.h>
#include <Entry.h>
#include <PathPrivate.h>


namespace {


bool
needs_normalizing(const std::string& path)
{
	if (path.empty() || path.front() != '/')
		return true;
	if (path.length() > 1 && path.back() == '/')
		return true;

	size_t start = 1;
	while (start < path.length()) {
		size_t end = std::min(path.find('/', start), path.length());
		std::string part = path.substr(start, end - start);
		if (part.empty() || part == "." || part == "..")
			return true;
		start = end + 1;
	}
	return false;
}


} // namespace


BPath::BPath()
	: fStatus(B_NO_INIT)
{
}


BPath::BPath(const entry_ref* ref)
	: BPath()
{
	SetTo(ref);
}


BPath::BPath(const BEntry* entry)
	: BPath()
{
	SetTo(entry);
}


BPath::BPath(const char* directory, const char* leaf, bool normalize)
	: BPath()
{
	SetTo(directory, leaf, normalize);
}


BPath::BPath(const BDirectory* directory, const char* leaf, bool normalize)
	: BPath()
{
	SetTo(directory, leaf, normalize);
}


BPath::~BPath() = default;


BPath&
BPath::operator=(const char* path)
{
	if (path == NULL)
		Unset();
	else
		SetTo(path);
	return *this;
}


bool
BPath::operator==(const BPath& path) const
{
	return fStatus == path.fStatus && fPath == path.fPath;
}


bool
BPath::operator==(const char* path) const
{
	return path == NULL ? fStatus != B_OK : fStatus == B_OK && fPath == path;
}


bool
BPath::operator!=(const BPath& path) const
{
	return !(*this == path);
}


bool
BPath::operator!=(const char* path) const
{
	return !(*this == path);
}


status_t
BPath::SetTo(const entry_ref* ref)
{
	if (ref == NULL)
		return _SetError(B_BAD_VALUE);

	BEntry entry(ref);
	return SetTo(&entry);
}


status_t
BPath::SetTo(const BEntry* entry)
{
	if (entry == NULL)
		return _SetError(B_BAD_VALUE);
	if (entry->InitCheck() != B_OK)
		return _SetError(entry->InitCheck());

	return _Set(join_path(entry->fDirectory, entry->fName));
}


/*!	\a leaf is a relative path that is appended, or NULL.
	\return \c B_BAD_VALUE for an absolute leaf. What has to be normalized must have a directory that exists.
*/
status_t
BPath::SetTo(const char* path, const char* leaf, bool normalize)
{
	if (path == NULL || (leaf != NULL && leaf[0] == '/'))
		return _SetError(B_BAD_VALUE);

	std::string joined = join_path(path, leaf != NULL ? leaf : "");
	if (joined.empty())
		return _SetError(B_ENTRY_NOT_FOUND);
	if (!normalize && !needs_normalizing(joined))
		return _Set(joined);

	std::string directory;
	std::string name;
	status_t status = resolve_entry(joined, &directory, &name);
	return status == B_OK ? _Set(join_path(directory, name)) : _SetError(status);
}


status_t
BPath::SetTo(const BDirectory* directory, const char* leaf, bool normalize)
{
	if (directory == NULL || directory->InitCheck() != B_OK)
		return _SetError(B_BAD_VALUE);

	std::string path = directory->fPath;
	return SetTo(path.c_str(), leaf, normalize);
}


void
BPath::Unset()
{
	_SetError(B_NO_INIT);
}


/*!	Appends a relative path. */
status_t
BPath::Append(const char* path, bool normalize)
{
	if (fStatus != B_OK || path == NULL)
		return _SetError(B_BAD_VALUE);

	std::string directory = fPath;
	return SetTo(directory.c_str(), path, normalize);
}


/*!	Belongs to this object. NULL when it is not set. */
const char*
BPath::Path() const
{
	return fStatus == B_OK ? fPath.c_str() : NULL;
}


/*!	The last part of the path, empty for the root directory. NULL when the path is not set. */
const char*
BPath::Leaf() const
{
	return fStatus == B_OK ? fPath.c_str() + fPath.rfind('/') + 1 : NULL;
}


/*!	\return \c B_ENTRY_NOT_FOUND for the root directory. */
status_t
BPath::GetParent(BPath* path) const
{
	if (path == NULL)
		return B_BAD_VALUE;
	if (fStatus != B_OK)
		return fStatus;
	if (fPath == "/")
		return B_ENTRY_NOT_FOUND;

	size_t slash = fPath.rfind('/');
	return path->_Set(slash == 0 ? std::string("/") : fPath.substr(0, slash));
}


status_t
BPath::_Set(const std::string& path)
{
	fPath = path;
	fStatus = B_OK;
	return B_OK;
}


status_t
BPath::_SetError(status_t error)
{
	fPath.clear();
	fStatus = error;
	return error;
}
