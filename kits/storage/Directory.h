/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DIRECTORY_H
#define DIRECTORY_H


#include <dirent.h>
#include <string>

#include <Node.h>


class BEntry;
class BFile;
struct entry_ref;


/*!	A folder and a position in the list of its entries, in no particular order and without "." and "..". */
class BDirectory : public BNode {
public:
	BDirectory();
	BDirectory(const entry_ref* ref);
	BDirectory(const BEntry* entry);
	BDirectory(const char* path);
	BDirectory(const BDirectory* directory, const char* path);
	~BDirectory() override;

	status_t SetTo(const entry_ref* ref);
	status_t SetTo(const BEntry* entry);
	status_t SetTo(const char* path);
	status_t SetTo(const BDirectory* directory, const char* path);
	void Unset();

	status_t GetEntry(BEntry* entry) const;
	status_t FindEntry(const char* path, BEntry* entry, bool traverse = false) const;
	bool Contains(const char* path, int32 nodeFlags = B_ANY_NODE) const;

	status_t GetNextEntry(BEntry* entry, bool traverse = false);
	status_t GetNextRef(entry_ref* ref);
	status_t Rewind();
	int32 CountEntries();

	status_t CreateDirectory(const char* path, BDirectory* directory);
	status_t CreateFile(const char* path, BFile* file, bool failIfExists = false);

private:
	friend class BEntry;
	friend class BFile;
	friend class BPath;

	status_t _SetTo(const std::string& path);
	status_t _NextName(std::string* _name);
	// A relative path within this directory, an absolute one as it stands.
	std::string _Resolve(const char* path) const;

	// Without links or dots; where the directory was when it was opened.
	std::string fPath;
	// Open while the entries are walked.
	DIR* fWalk;
};


status_t create_directory(const char* path, mode_t mode);


#endif // DIRECTORY_H
