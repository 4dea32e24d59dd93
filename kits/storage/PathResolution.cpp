/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <PathResolution.h>

#include <cerrno>
#include <cstdlib>

#include <Errno.h>
#include <StorageDefs.h>


status_t
resolve_path(const std::string& path, std::string* _resolved)
{
	char* resolved = realpath(path.c_str(), NULL);
	if (resolved == NULL)
		return status_for_errno(errno);

	*_resolved = resolved;
	free(resolved);
	return B_OK;
}


status_t
resolve_entry(const std::string& path, std::string* _directory, std::string* _name)
{
	if (path.empty())
		return B_ENTRY_NOT_FOUND;

	size_t end = path.find_last_not_of('/');
	if (end == std::string::npos) {
		*_directory = "/";
		_name->clear();
		return B_OK;
	}

	size_t slash = path.rfind('/', end);
	size_t start = slash == std::string::npos ? 0 : slash + 1;
	std::string name = path.substr(start, end + 1 - start);
	if (name == "." || name == "..") {
		// These are no entries' names: find the one that they mean.
		std::string resolved;
		status_t status = resolve_path(path, &resolved);
		return status == B_OK ? resolve_entry(resolved, _directory, _name) : status;
	}
	if (name.length() >= B_FILE_NAME_LENGTH)
		return B_NAME_TOO_LONG;

	status_t status = resolve_path(start == 0 ? "." : path.substr(0, start), _directory);
	if (status == B_OK)
		*_name = name;
	return status;
}


std::string
join_path(const std::string& directory, const std::string& name)
{
	if (name.empty())
		return directory;
	if (name.front() == '/' || directory.empty())
		return name;
	if (directory.back() == '/')
		return directory + name;

	return directory + '/' + name;
}
