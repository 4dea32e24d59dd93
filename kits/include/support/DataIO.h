/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DATA_IO_H
#define DATA_IO_H


#include <SupportDefs.h>


/*!	Something that bytes are read from and written to. Both return how many bytes were moved, or an
	error.
*/
class BDataIO {
public:
	BDataIO() = default;
	BDataIO(const BDataIO&) = delete;
	virtual ~BDataIO();

	BDataIO& operator=(const BDataIO&) = delete;

	virtual ssize_t Read(void* buffer, size_t size) = 0;
	virtual ssize_t Write(const void* buffer, size_t size) = 0;
};


/*!	A BDataIO with a position, from which Read() and Write() go on. */
class BPositionIO : public BDataIO {};


/*!	Reads the bytes of a buffer that it borrows. */
class BMemoryIO : public BPositionIO {
public:
	BMemoryIO(void* data, size_t length) = delete;
	BMemoryIO(const void* data, size_t length);

	ssize_t Read(void* buffer, size_t size) override;
	ssize_t Write(const void* buffer, size_t size) override;

private:
	const uint8* fBytes;
	size_t fLength;
	size_t fPosition;
};


#endif // DATA_IO_H
