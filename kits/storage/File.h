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


/*!	An open file. Reads and writes move the position, or not, as BPositionIO says; both may move fewer bytes than
	asked for.
*/
class BFile : public BNode, public BPositionIO {
public:
	BFile();
	BFile(const entry_ref* ref, uint32 openMode);
	BFile(const BEntry* entry, uint32 openMode);
	BFile(const char* path, uint32 openMode);
	BFile(const BDirectory* directory, const char* path, uint32 openMode);
	~BFile() override;

	status_t SetTo(const entry_ref* ref, uint32 openMode);
	status_t SetTo(const BEntry* entry, uint32 openMode);
	status_t SetTo(const char* path, uint32 openMode);
	status_t SetTo(const BDirectory* directory, const char* path, uint32 openMode);

	bool IsReadable() const;
	bool IsWritable() const;

	ssize_t Read(void* buffer, size_t size) override;
	ssize_t ReadAt(off_t location, void* buffer, size_t size) override;
	ssize_t Write(const void* buffer, size_t size) override;
	ssize_t WriteAt(off_t location, const void* buffer, size_t size) override;

	off_t Seek(off_t offset, uint32 seekMode) override;
	off_t Position() const override;
	status_t SetSize(off_t size) override;
	status_t GetSize(off_t* _size) const override;

private:
	uint32 fMode;
};


#endif // FILE_H
