/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FILE_H
#define FILE_H


#include <DataIO.h>
#include <Node.h>


class BDirectory;
class BEntry;
struct entry_ref;


/*!	An open file. Reads and writes move the position, and may move fewer bytes than asked for. */
class BFile : public BNode, public BPositionIO {
public:
	BFile(const entry_ref* ref, uint32 openMode) = delete;
	BFile(const BEntry* entry, uint32 openMode) = delete;
	BFile(const char* path, uint32 openMode);
	BFile(const BDirectory* directory, const char* path, uint32 openMode) = delete;

	ssize_t Read(void* buffer, size_t size) override;
	ssize_t Write(const void* buffer, size_t size) override;
};


#endif // FILE_H
