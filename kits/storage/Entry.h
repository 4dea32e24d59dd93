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
class BEntry;
class BPath;


/*!	Names an entry by its directory and its name; the entry need not exist.
	Differs from Haiku: \c device and \c directory cannot be turned back into a path here, so a reference carries the path of
	its directory as well. One that is put together by hand from numbers is not found.
*/
// NOLINTNEXTLINE(readability-identifier-naming): Haiku's name
struct entry_ref {
	entry_ref();
	entry_ref(const entry_ref& other);
	~entry_ref();

	entry_ref& operator=(const entry_ref& other);
	bool operator==(const entry_ref& other) const;
	bool operator!=(const entry_ref& other) const;

	status_t set_name(const char* newName);

	dev_t device;
	ino_t directory;
	char* name;

private:
	friend class BDirectory;
	friend class BEntry;
	friend class BMessage;
	friend class BPath;

	char* fDirectoryPath;
};


/*!	An entry of a directory: a name that a file, a folder or a link may have, whether or not it is there.
	Names are raw bytes.
*/
class BEntry : public BStatable {
public:
	BEntry();
	BEntry(const BDirectory* directory, const char* path, bool traverse = false);
	BEntry(const entry_ref* ref, bool traverse = false);
	BEntry(const char* path, bool traverse = false);
	BEntry(const BEntry& other) = default;
	~BEntry() override;

	BEntry& operator=(const BEntry& other) = default;
	bool operator==(const BEntry& other) const;
	bool operator!=(const BEntry& other) const;

	status_t InitCheck() const { return fStatus; }
	bool Exists() const;
	status_t GetStat(struct stat* _stat) const override;
	const char* Name() const;

	status_t SetTo(const BDirectory* directory, const char* path, bool traverse = false);
	status_t SetTo(const entry_ref* ref, bool traverse = false);
	status_t SetTo(const char* path, bool traverse = false);
	void Unset();

	status_t GetRef(entry_ref* ref) const;
	status_t GetPath(BPath* path) const;
	status_t GetParent(BEntry* entry) const;
	status_t GetParent(BDirectory* directory) const;
	status_t GetName(char* buffer) const;

	status_t Rename(const char* path, bool clobber = false);
	status_t Remove();

private:
	friend class BPath;

	status_t _SetTo(const std::string& path, bool traverse);

	// The directory's path without links or dots; fName is empty for the root directory only.
	std::string fDirectory;
	std::string fName;
	status_t fStatus;
};


status_t get_ref_for_path(const char* path, entry_ref* ref);


#endif // ENTRY_H
