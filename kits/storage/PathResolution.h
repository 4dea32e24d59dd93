/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PATH_RESOLUTION_H
#define PATH_RESOLUTION_H


#include <string>

#include <SupportDefs.h>


/*!	The absolute path, without links and dots, of something that exists. */
status_t resolve_path(const std::string& path, std::string* _resolved);

/*!	Splits a path into the resolved path of its directory, which must exist, and the name in it,
	which need not.
	The name is empty for the root directory.
*/
status_t resolve_entry(const std::string& path, std::string* _directory, std::string* _name);

/*!	\a name within \a directory; an absolute name as it stands. */
std::string join_path(const std::string& directory, const std::string& name);


#endif // PATH_RESOLUTION_H
