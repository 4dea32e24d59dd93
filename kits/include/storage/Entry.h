/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ENTRY_H
#define ENTRY_H


#include <string>

#include <Statable.h>
#include <StorageDefs.h>


class BDirectory;
class BPath;


/*!	Names an entry by its directory and its name; the entry need not exist.
	Differs from Haiku: \c device and \c directory cannot be turned back into a path here, so a
	reference carries the path of its directory as well. One that is put together by hand from
	numbers is not found.
*/
// NOLINTNEXTLINE(readability-identifier-naming): Haiku's name
struct entry_ref {
	entry_ref();
	entry_ref(dev_t device, ino_t directory, const char* name) = delete;
	entry_ref(const entry_ref&) = delete;
	~entry_ref();

	entry_ref& operator=(const entry_ref& other);

	status_t set_name(const char* newName);

	dev_t device;
	ino_t directory;
	char* name;

private:
	friend class BEntry;
	friend class BMessage;

	char* fDirectoryPath;
};


/*!	An entry of a directory: a name that a file, a folder or a link may have, whether or not it is
	there.
	Names are raw bytes.
*/
class BEntry : public BStatable {
public:
	BEntry();
	BEntry(const BDirectory* directory, const char* path, bool traverse = false) = delete;
	BEntry(const entry_ref* ref, bool traverse = false);
	BEntry(const char* path, bool traverse = false);

	status_t InitCheck() const { return fStatus; }
	bool Exists() const;
	status_t GetStat(struct stat* _stat) const override;

	status_t GetRef(entry_ref* ref) const;
	status_t GetPath(BPath* path) const;

private:
	status_t _SetTo(const std::string& path, bool traverse);

	// The directory's path without links or dots; fName is empty for the root directory only.
	std::string fDirectory;
	std::string fName;
	status_t fStatus;
};


status_t get_ref_for_path(const char* path, entry_ref* ref);


#endif // ENTRY_H
