/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Path.h>

#include <algorithm>

#include <Entry.h>
#include <PathResolution.h>


static bool
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


BPath::BPath(const entry_ref* ref)
{
	BEntry(ref).GetPath(this);
}


/*!	\a leaf is a relative path that is appended, or NULL. It is not set for an absolute leaf, or for
	what has to be normalized and has no directory that exists.
*/
BPath::BPath(const char* directory, const char* leaf, bool normalize)
{
	_SetTo(directory, leaf, normalize);
}


/*!	Appends a relative path. */
status_t
BPath::Append(const char* path, bool normalize)
{
	if (path == NULL)
		return B_BAD_VALUE;

	const std::string directory = fPath;
	return _SetTo(directory.c_str(), path, normalize);
}


/*!	Belongs to this object. NULL when it is not set. */
const char*
BPath::Path() const
{
	return fPath.empty() ? NULL : fPath.c_str();
}


/*!	The last part of the path, empty for the root directory. NULL when the path is not set. */
const char*
BPath::Leaf() const
{
	return fPath.empty() ? NULL : fPath.c_str() + fPath.rfind('/') + 1;
}


/*!	\return \c B_ENTRY_NOT_FOUND for the root directory. */
status_t
BPath::GetParent(BPath* path) const
{
	if (fPath.empty())
		return B_NO_INIT;
	if (fPath == "/")
		return B_ENTRY_NOT_FOUND;

	path->fPath = fPath.substr(0, std::max<size_t>(fPath.rfind('/'), 1));
	return B_OK;
}


status_t
BPath::_SetTo(const char* path, const char* leaf, bool normalize)
{
	fPath.clear();
	if (path == NULL || path[0] == 0 || (leaf != NULL && leaf[0] == '/'))
		return B_BAD_VALUE;

	const std::string joined = join_path(path, leaf != NULL ? leaf : "");
	if (!normalize && !needs_normalizing(joined)) {
		fPath = joined;
		return B_OK;
	}

	std::string directory;
	std::string name;
	status_t status = resolve_entry(joined, &directory, &name);
	if (status == B_OK)
		fPath = join_path(directory, name);
	return status;
}
