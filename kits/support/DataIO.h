/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DATA_IO_H
#define DATA_IO_H


#include <SupportDefs.h>


/*!	Something that bytes are read from and written to. Both return how many bytes were moved, or an error. */
class BDataIO {
public:
	BDataIO();
	BDataIO(const BDataIO&) = delete;
	virtual ~BDataIO();

	BDataIO& operator=(const BDataIO&) = delete;

	virtual ssize_t Read(void* buffer, size_t size) = 0;
	virtual ssize_t Write(const void* buffer, size_t size) = 0;

	status_t ReadExactly(void* buffer, size_t size, size_t* _bytesRead = NULL);
	status_t WriteExactly(const void* buffer, size_t size, size_t* _bytesWritten = NULL);
};


/*!	A BDataIO with a position, which Read() and Write() move and ReadAt() and WriteAt() leave alone. */
class BPositionIO : public BDataIO {
public:
	BPositionIO();
	~BPositionIO() override;

	ssize_t Read(void* buffer, size_t size) override;
	ssize_t Write(const void* buffer, size_t size) override;

	virtual ssize_t ReadAt(off_t position, void* buffer, size_t size) = 0;
	virtual ssize_t WriteAt(off_t position, const void* buffer, size_t size) = 0;
	virtual off_t Seek(off_t position, uint32 seekMode) = 0;
	virtual off_t Position() const = 0;
	virtual status_t SetSize(off_t size);
	virtual status_t GetSize(off_t* _size) const;
};


/*!	Reads, and writes unless it was given const memory, the bytes of a buffer that it borrows and never enlarges. */
class BMemoryIO : public BPositionIO {
public:
	BMemoryIO(void* data, size_t length);
	BMemoryIO(const void* data, size_t length);
	~BMemoryIO() override;

	ssize_t ReadAt(off_t position, void* buffer, size_t size) override;
	ssize_t WriteAt(off_t position, const void* buffer, size_t size) override;
	off_t Seek(off_t position, uint32 seekMode) override;
	off_t Position() const override { return fPosition; }
	status_t SetSize(off_t size) override;

private:
	const uint8* fReadable;
	uint8* fWritable;
	size_t fLength;
	size_t fCapacity;
	off_t fPosition;
};


#endif // DATA_IO_H
