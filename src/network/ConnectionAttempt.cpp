/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ConnectionAttempt.h"

#include <cerrno>
#include <cstring>
#include <sys/socket.h>

#include <Autolock.h>
#include <OS.h>

#include "Reserve.h"


// How often, and how far apart, a call that opens a socket is told to end.
static const int32 kStopAttempts = 50;
static const bigtime_t kStopInterval = 5000;


/*!	\param port In host order. */
ConnectionAttempt::ConnectionAttempt(const char* host, uint32 port,
	const ConnectionOptions& options)
	: fLookup(host, port),
	  fOptions(options),
	  fError(""),
	  fLock("connection attempt"),
	  fIsConnecting(false),
	  fIsCanceled(false)
{
}


ConnectionAttempt::~ConnectionAttempt() = default;


/*!	Once the attempt is canceled no further step is begun, and what came of the last one does not
	count.
*/
ConnectionAttempt::Outcome
ConnectionAttempt::Run()
{
	const int error = fLookup.Run(fOptions.isLookupCanceled);
	if (_IsCanceled())
		return kCanceled;
	if (fLookup.Address() == NULL) {
		fError = gai_strerror(error != 0 ? error : EAI_NONAME);
		return kNotResolved;
	}
	return _Connect(*fLookup.Address());
}


/*!	Lets go of the socket; whoever has copied ConnectedSocket() keeps it open. For the thread of
	Run().
*/
void
ConnectionAttempt::Close()
{
	BAutolock locker(fLock);
	fSocket = Socket();
}


/*!	A call that is only just on its way into the system does not notice that its socket is shut
	down, so this is done more than once: it may take a quarter of a second.
*/
void
ConnectionAttempt::Cancel()
{
	{
		BAutolock locker(fLock);
		fIsCanceled = true;
	}
	fLookup.Cancel();
	for (int32 i = 0; i < kStopAttempts; i++) {
		{
			BAutolock locker(fLock);
			fSocket.ShutDown();
			if (!fIsConnecting)
				return;
		}
		snooze(kStopInterval);
	}
}


bool
ConnectionAttempt::_IsCanceled() const
{
	BAutolock locker(fLock);
	return fIsCanceled;
}


ConnectionAttempt::Outcome
ConnectionAttempt::_Connect(const addrinfo& address)
{
	if (!HasSpareDescriptors()) {
		fError = strerror(EMFILE);
		return kNoSocket;
	}
	const int number = socket(address.ai_family, address.ai_socktype, address.ai_protocol);
	if (number < 0) {
		fError = strerror(errno);
		return kNoSocket;
	}
	if (!_BeginConnecting(number))
		return kCanceled;

	fSocket.SetTimeouts(fOptions.receiveTimeout, fOptions.sendTimeout);
	const int result = connect(number, address.ai_addr, address.ai_addrlen);
	// Where the time-out ends a connect, some systems say that it is still in progress.
	const int error = errno == EINPROGRESS ? ETIMEDOUT : errno;
	if (!_EndConnecting(result == 0))
		return kCanceled;
	if (result != 0) {
		fError = strerror(error);
		return kNotConnected;
	}
	return kConnected;
}


/*!	Shows the socket to whoever cancels. From here on it is the attempt's. */
bool
ConnectionAttempt::_BeginConnecting(int number)
{
	BAutolock locker(fLock);
	fSocket = Socket(number, fOptions.signalPolicy);
	fIsConnecting = !fIsCanceled;
	return fIsConnecting;
}


/*!	A socket that came to nothing is closed. */
bool
ConnectionAttempt::_EndConnecting(bool isConnected)
{
	BAutolock locker(fLock);
	fIsConnecting = false;
	if (!isConnected)
		fSocket = Socket();
	return !fIsCanceled;
}
