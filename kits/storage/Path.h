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


/*!	An absolute path. Relative ones, and those with dots or doubled slashes, are normalized when they are set, which
	needs their directory to exist; what is set otherwise is taken as it stands. Raw bytes.
*/
class BPath {
public:
	BPath();
	BPath(const BPath& path) = default;
	BPath(const entry_ref* ref);
	BPath(const BEntry* entry);
	BPath(const char* directory, const char* leaf = NULL, bool normalize = false);
	BPath(const BDirectory* directory, const char* leaf = NULL, bool normalize = false);
	~BPath();

	BPath& operator=(const BPath& path) = default;
	BPath& operator=(const char* path);
	bool operator==(const BPath& path) const;
	bool operator==(const char* path) const;
	bool operator!=(const BPath& path) const;
	bool operator!=(const char* path) const;

	status_t InitCheck() const { return fStatus; }

	status_t SetTo(const entry_ref* ref);
	status_t SetTo(const BEntry* entry);
	status_t SetTo(const char* path, const char* leaf = NULL, bool normalize = false);
	status_t SetTo(const BDirectory* directory, const char* leaf = NULL, bool normalize = false);
	void Unset();

	status_t Append(const char* path, bool normalize = false);

	const char* Path() const;
	const char* Leaf() const;
	status_t GetParent(BPath* path) const;

private:
	status_t _Set(const std::string& path);
	status_t _SetError(status_t error);

	std::string fPath;
	status_t fStatus;
};


#endif // PATH_H
