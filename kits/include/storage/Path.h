/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PATH_H
#define PATH_H


#include <string>

#include <SupportDefs.h>


class BDirectory;
class BEntry;
struct entry_ref;


/*!	An absolute path. Relative ones, and those with dots or doubled slashes, are normalized when
	they are set, which needs their directory to exist; what is set otherwise is taken as it stands.
	Raw bytes.
*/
class BPath {
public:
	BPath() = default;
	BPath(const entry_ref* ref);
	BPath(const BEntry* entry) = delete;
	BPath(const char* directory, const char* leaf = NULL, bool normalize = false);
	BPath(const BDirectory* directory, const char* leaf = NULL, bool normalize = false) = delete;

	status_t Append(const char* path, bool normalize = false);

	const char* Path() const;
	const char* Leaf() const;
	status_t GetParent(BPath* path) const;

private:
	status_t _SetTo(const char* path, const char* leaf, bool normalize);

	// Empty while it is not set.
	std::string fPath;
};


#endif // PATH_H
