/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CONNECTION_ATTEMPT_H
#define CONNECTION_ATTEMPT_H


#include <Locker.h>
#include <String.h>

#include "NameLookup.h"
#include "Socket.h"


/*!	What a connection shall be like. */
struct ConnectionOptions {
	// The time-outs of its calls, in seconds, 0 for none; that of sending is connecting's, too.
	int receiveTimeout;
	int sendTimeout;
	Socket::SignalPolicy signalPolicy;
	// Whether Cancel() ends the lookup of the name, too, which takes a thread of its own.
	bool isLookupCanceled;
};


/*!	Resolves a host for IPv4 and connects to the first of its addresses.
	Run() belongs to one thread and is called once; it blocks. Cancel() belongs to any other thread:
	it makes Run() return soon, whatever that waits for, and shuts down a socket that has been
	opened already and not been closed.
*/
class ConnectionAttempt {
public:
	enum Outcome { kConnected, kNotResolved, kNoSocket, kNotConnected, kCanceled };

	ConnectionAttempt(const char* host, uint32 port, const ConnectionOptions& options);
	ConnectionAttempt(const ConnectionAttempt&) = delete;
	~ConnectionAttempt();

	ConnectionAttempt& operator=(const ConnectionAttempt&) = delete;

	Outcome Run();
	void Close();
	void Cancel();

	// After Run(), for its thread: the open socket, and what the system says of a failure.
	const Socket& ConnectedSocket() const { return fSocket; }
	const char* Error() const { return fError.String(); }

private:
	bool _IsCanceled() const;
	Outcome _Connect(const addrinfo& address);
	bool _BeginConnecting(int number);
	bool _EndConnecting(bool isConnected);

	NameLookup fLookup;
	const ConnectionOptions fOptions;
	BString fError;

	// Guards the following.
	mutable BLocker fLock;
	// Changed by the thread of Run() alone.
	Socket fSocket;
	bool fIsConnecting;
	bool fIsCanceled;
};


#endif // CONNECTION_ATTEMPT_H
