/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRANSACTION_BUILDER_H
#define TRANSACTION_BUILDER_H


#include <cstddef>

#include <SupportDefs.h>


/*!	Puts the parameters of a transaction behind one another, with room for its header in front, and
	counts them.
	Borrows the buffer and never writes past its size: what does not fit is refused and not counted.
	A value may also be announced only, and be sent from where it stands.
*/
class TransactionBuilder {
public:
	TransactionBuilder(uint8* buffer, size_t size);

	bool BuildParam(uint16 type, const void* data, uint16 len);
	bool BuildParamInt16(uint16 type, uint16 value);
	bool BuildParamInt32(uint16 type, uint32 value);
	bool BuildParamHeader(uint16 type, uint16 len);

	// Where the header belongs.
	uint8* Header() { return fBuffer; }
	// The bytes in the buffer, with the header.
	size_t Size() const { return fSize; }
	// For the header: 2, and for each parameter 4 and the length of its value.
	uint32 DataLength() const { return fDataLength; }
	uint16 CountParams() const { return fCount; }

private:
	uint8* fBuffer;
	size_t fCapacity;
	size_t fSize;
	uint32 fDataLength;
	uint16 fCount;
};


/*!	The bytes of one transaction that is to be sent, in the pieces in which they are written one
	after another.
	They are borrowed and must outlive it.
*/
class TransactionPieces {
public:
	TransactionPieces();
	TransactionPieces(const void* data, size_t size);

	void Add(const void* data, size_t size);

	int32 CountPieces() const { return fCount; }
	const void* DataAt(int32 index) const { return fData[index]; }
	size_t SizeAt(int32 index) const { return fSizes[index]; }

private:
	// A file request: the header, and three parameters in two pieces each.
	static const int32 kMaxPieces = 7;

	const void* fData[kMaxPieces];
	size_t fSizes[kMaxPieces];
	int32 fCount;
};


#endif // TRANSACTION_BUILDER_H
