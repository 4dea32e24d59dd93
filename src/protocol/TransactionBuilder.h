/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRANSACTION_BUILDER_H
#define TRANSACTION_BUILDER_H


#include <cstddef>

#include <SupportDefs.h>


/*!	A transaction that is to be sent: room for its header, and its parameters, which are counted, in
	the pieces in which they are written one after another.
	What is built stands in a buffer of its own, one piece until something is borrowed: a borrowed
	value is a piece by itself, sent from where it stands, and must outlive the builder's use. What
	does not fit is refused and not counted.
*/
class TransactionBuilder {
public:
	// The most bytes that it holds, header included, borrowed values not counted.
	static constexpr size_t kCapacity = 1024;

	struct Piece {
		const void* data;
		size_t size;
	};

	TransactionBuilder();
	TransactionBuilder(const TransactionBuilder&) = delete;

	TransactionBuilder& operator=(const TransactionBuilder&) = delete;

	bool BuildParam(uint16 type, const void* data, uint16 len);
	bool BuildParamInt16(uint16 type, uint16 value);
	bool BorrowParam(uint16 type, const void* data, uint16 len);
	// What is built next begins a piece of its own.
	void EndPiece() { fIsPieceOpen = false; }

	// Where the header belongs.
	uint8* Header() { return fBuffer; }
	// For the header: 2, and for each parameter 4 and the length of its value.
	uint32 DataLength() const { return fDataLength; }
	uint16 CountParams() const { return fParamCount; }

	int32 CountPieces() const { return fPieceCount; }
	const Piece& PieceAt(int32 index) const { return fPieces[index]; }

private:
	// A request for a file: the header, and three parameters in two pieces each.
	static const int32 kMaxPieces = 7;

	bool _Fits(size_t size, int32 pieces) const;
	void _Append(const void* data, size_t size);
	void _AppendParamHeader(uint16 type, uint16 len);

	uint8 fBuffer[kCapacity];
	size_t fSize;
	uint32 fDataLength;
	uint16 fParamCount;
	Piece fPieces[kMaxPieces];
	int32 fPieceCount;
	bool fIsPieceOpen;
};


#endif // TRANSACTION_BUILDER_H
