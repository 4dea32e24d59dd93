/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRANSACTION_PARSER_H
#define TRANSACTION_PARSER_H


#include <SupportDefs.h>

#include "ParameterWalker.h"


/*!	Cuts a stream of bytes into transactions, in two stages: the header, then what it announces. It
	never asks for more than the current stage needs, so that its buffer holds one transaction at a
	time, and holds no more memory than that.
	Whoever has the bytes puts up to BytesNeeded() of them to Room() and calls Advance(). For one
	thread at a time.
*/
class TransactionParser {
public:
	enum Result {
		// The transaction is not complete yet, or was one without parameters, which is dropped.
		kNeedsMore,
		// Read the transaction, then call Reset().
		kComplete,
		// It announces more than is allowed, or there is no memory for it: the stream cannot go on.
		kFailed
	};

	// What a transaction is, by the type word of its header.
	enum {
		kStateHeader = 0,
		kStateChat = 1,
		kStateMessage = 2,
		kStateUserChange = 3,
		kStateUserLeave = 4,
		kStateTask = 5,
		kStateNewsPost = 6,
		kStateAgreement = 7,
		kStatePoliteQuit = 8,
		kStateBroadcast = 9,
		kStateServerBanner = 10,
		kStateUnknown = 99
	};

	TransactionParser();
	TransactionParser(const TransactionParser&) = delete;
	~TransactionParser();

	TransactionParser& operator=(const TransactionParser&) = delete;

	bool Reset();

	uint8* Room() const { return fBuffer + fBufferPos; }
	uint32 BytesNeeded() const { return fBufferNeeded; }
	Result Advance(uint32 length);

	// Of a complete transaction. What they point to lives until Reset().
	// In bytes, with its header.
	uint32 Size() const { return fBufferPos; }
	int32 State() const { return fParseState; }
	uint32 TransID() const;
	uint32 ErrorCode() const;
	ParameterWalker Params() const;

private:
	Result _ProcessHeader();
	bool _Resize(uint32 size);

	uint8* fBuffer;
	// Of the block: the transaction and 16 bytes more.
	uint32 fBufferSize;
	uint32 fBufferPos;
	uint32 fBufferNeeded;
	int32 fParseState;
};


#endif // TRANSACTION_PARSER_H
