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
struct entry_ref;
struct node_ref;


/*!	A folder and a position in the list of its entries, in no particular order and without "." and
	"..".
*/
class BDirectory : public BNode {
public:
	BDirectory();
	BDirectory(const entry_ref* ref) = delete;
	BDirectory(const node_ref* ref) = delete;
	BDirectory(const BEntry* entry) = delete;
	BDirectory(const char* path);
	BDirectory(const BDirectory* directory, const char* path) = delete;
	~BDirectory() override;

	virtual status_t GetNextEntry(BEntry* entry, bool traverse = false);

	status_t CreateDirectory(const char* path, BDirectory* directory);

private:
	status_t _SetTo(const char* path);
	status_t _NextName(std::string* _name);

	// Without links or dots; where the directory was when it was opened.
	std::string fPath;
	// Open while the entries are walked.
	DIR* fWalk;
};


#endif // DIRECTORY_H
