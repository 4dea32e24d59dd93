/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SOCKET_REFERENCE_H
#define SOCKET_REFERENCE_H


#include <memory>

#include <SupportDefs.h>


/*!	A share in an open socket. The socket is closed when the last share goes, so that nobody reads
	from or writes to a number that was given to another connection meanwhile. One share belongs to
	one thread or is guarded by a lock; different shares of one socket may be used by different
	threads.
*/
class SocketReference {
public:
	SocketReference() = default;
	explicit SocketReference(int number);

	bool IsSet() const { return fSocket != NULL; }
	bool IsSameAs(const SocketReference& other) const { return fSocket == other.fSocket; }
	// -1 when none is set.
	int Number() const;

	void ShutDown() const;

	ssize_t SendFully(const void* data, size_t length) const;
	ssize_t SendAtOnce(const void* data, size_t length) const;
	ssize_t ReceiveFully(void* buffer, size_t length) const;

private:
	class OpenSocket;

	ssize_t _Send(const void* data, size_t length, int flags) const;

	std::shared_ptr<OpenSocket> fSocket;
};


#endif // SOCKET_REFERENCE_H
