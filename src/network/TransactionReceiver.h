/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRANSACTION_RECEIVER_H
#define TRANSACTION_RECEIVER_H


#include "TransactionParser.h"


class Socket;


/*!	Reads a server's transactions from a connection, one at a time and never more bytes than the
	current stage of its parser needs. For one thread at a time.
*/
class TransactionReceiver {
public:
	enum Result {
		// There was nothing to read for a second, or only a part of a transaction has come.
		kIncomplete,
		// Transaction() is complete. Read it, then call Reset().
		kComplete,
		// The connection has ended, or what the server sends cannot be read.
		kEnd
	};

	// Before the first transaction, and behind each; false when there is no memory.
	bool Reset() { return fParser.Reset(); }
	Result Receive(const Socket& socket);

	const TransactionParser& Transaction() const { return fParser; }

private:
	TransactionParser fParser;
};


#endif // TRANSACTION_RECEIVER_H
