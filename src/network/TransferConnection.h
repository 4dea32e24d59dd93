/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRANSFER_CONNECTION_H
#define TRANSFER_CONNECTION_H


#include <cstddef>
#include <sys/types.h>

#include <SupportDefs.h>


/*!	A connection to a server's transfer port, one above its control port. Blocking, for one thread;
	closes itself.
	A write to a connection that the other side has closed is an error and never a signal, and a
	signal is no error.
*/
class TransferConnection {
public:
	TransferConnection();
	TransferConnection(const TransferConnection&) = delete;
	~TransferConnection();

	TransferConnection& operator=(const TransferConnection&) = delete;

	[[nodiscard]] bool ConnectTo(const char* address, uint16 controlPort, int receiveTimeout,
		int sendTimeout);
	void Close();

	ssize_t Send(const void* data, size_t size);
	[[nodiscard]] bool SendAll(const void* data, size_t size);
	ssize_t Receive(void* buffer, size_t size);
	[[nodiscard]] bool ReceiveExactly(void* buffer, size_t size);

private:
	int fSocket;
};


#endif // TRANSFER_CONNECTION_H
