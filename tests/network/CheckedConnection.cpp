/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "CheckedConnection.h"

#include <algorithm>
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "WireBytes.h"
#include "WireRecords.h"


// In ticks: the most that a handshake waits for its answer, and the most that a pause lasts.
static const uint32_t kHandshakeDelay = 8;
static const uint32_t kPause = 400;
// How much is read of one connection before it is the others' turn.
static const int kReads = 16;
// In bytes: a client that does not read gets no more.
static const size_t kMaxOut = 65536;


static std::string
user(uint16_t socket)
{
	return wire_param(300, wire_user(socket, 128, 0, "Ben"));
}


CheckedConnection::CheckedConnection(int descriptor, std::mt19937* random, ServedCounts* counts)
	: fDescriptor(descriptor),
	  fRandom(random),
	  fCounts(counts),
	  fTick(0),
	  fAtOnce(false),
	  fHandshakeTick(kNever),
	  fAnswerAt(kNever),
	  fReadAt(kNever),
	  fFarewell(kStay)
{
	fCounts->connections++;
}


CheckedConnection::~CheckedConnection()
{
	close(fDescriptor);
}


short
CheckedConnection::Events() const
{
	const int reading = fReadAt == kNever ? POLLIN : 0;
	return static_cast<short>(fOut.empty() ? reading : reading | POLLOUT);
}


uint64_t
CheckedConnection::DueAt() const
{
	return std::min(fAnswerAt, fReadAt);
}


bool
CheckedConnection::Proceed(short events, uint64_t tick, bool atOnce)
{
	fTick = tick;
	fAtOnce = atOnce;
	// A connection that has broken down is read to its end.
	if (atOnce || tick >= fReadAt || (events & (POLLERR | POLLHUP)) != 0)
		fReadAt = kNever;

	// What came while the handshake waited for its answer is read before that.
	const bool isOpen = fReadAt != kNever || _Read();
	if (isOpen && fAnswerAt != kNever && (atOnce || tick >= fAnswerAt))
		_AnswerHandshake();
	RequestStream::Request request;
	while (fFarewell == kStay && fStream.Next(&request))
		_Handle(request);
	// Who has made a mistake is not to wait for anything.
	if (!Complaint().empty())
		fFarewell = kClose;
	_Write();
	if (isOpen && fFarewell == kStay)
		return true;

	if (!isOpen && fStream.IsUnfinished())
		fCounts->unfinished++;
	_SayFarewell();
	return false;
}


uint32_t
CheckedConnection::_Number(uint32_t limit)
{
	return static_cast<uint32_t>((*fRandom)() % limit);
}


/*!	\return \c false when the connection has ended. */
bool
CheckedConnection::_Read()
{
	char buffer[65536];
	for (int i = 0; i < kReads; i++) {
		const ssize_t size = recv(fDescriptor, buffer, sizeof(buffer), MSG_DONTWAIT);
		if (size < 0 && errno == EAGAIN)
			break;
		if (size < 1)
			return false;
		fStream.Add(buffer, static_cast<size_t>(size));
	}

	if (fHandshakeTick == kNever && fStream.HasHandshake()) {
		fHandshakeTick = fTick;
		fAnswerAt = fTick + _Number(kHandshakeDelay);
	}
	return true;
}


void
CheckedConnection::_Write()
{
	while (!fOut.empty()) {
		const ssize_t size = send(fDescriptor, fOut.data(), fOut.size(),
			MSG_DONTWAIT | MSG_NOSIGNAL);
		if (size < 0 && errno == EAGAIN)
			break;
		// Who has gone gets nothing any more.
		fOut.erase(0, size > 0 ? static_cast<size_t>(size) : std::string::npos);
	}
}


/*!	A client that is not accepted has nothing more to say. */
void
CheckedConnection::_AnswerHandshake()
{
	fAnswerAt = kNever;
	if (fTick > fHandshakeTick)
		fCounts->lateHandshakes++;
	switch (_Number(20)) {
		case 0:
			fFarewell = kClose;
			break;
		case 1:
			fFarewell = kReset;
			break;
		case 2:
			_Send("NOPE" + wire32(0));
			break;
		case 3:
			_Send("TRTP" + wire8(0));
			fFarewell = kClose;
			break;
		case 4:
			// An error code that nobody looks at.
			fStream.AcceptHandshake();
			_Send("TRTP" + wire32(1));
			break;
		default:
			fStream.AcceptHandshake();
			_Send("TRTP" + wire32(0));
			break;
	}
}


void
CheckedConnection::_Handle(const RequestStream::Request& request)
{
	fCounts->requests++;
	if (fOut.size() < kMaxOut)
		_Answer(request);
	_DoAsItLikes();
}


void
CheckedConnection::_Answer(const RequestStream::Request& request)
{
	if (request.type == 107) {
		fCounts->logins++;
		const uint32_t number = _Number(10);
		if (number < 7)
			_Reply(request, wire_param(160, wire16(190)) + wire_param(162, "Harbour"));
		else if (number < 9)
			_Reply(request, wire_param(100, "not today"), number - 6);
		return;
	}
	if (_Number(4) != 0)
		return;

	std::string params;
	switch (request.type) {
		case 200:
			for (uint32_t i = _Number(4); i > 0; i--)
				params += wire_param(200, wire_file("TEXT", "ttxt", 1000, std::string(i, 'f')));
			break;
		case 202:
		case 203:
		case 212:
			params = wire_param(107, wire32(request.id)) + wire_param(108, wire32(1000));
			break;
		case 300:
			for (uint32_t i = _Number(4); i > 0; i--)
				params += user(static_cast<uint16_t>(i));
			break;
		default:
			params = wire_param(101, "done");
			break;
	}
	_Reply(request, params, _Number(8) == 0 ? 1 : 0);
}


/*!	What a server does of its own accord, a little of it for each request. */
void
CheckedConnection::_DoAsItLikes()
{
	const std::string chat = wire_transaction(106, 0, wire_param(101, "good morning"));
	switch (_Number(400)) {
		case 0:
			fFarewell = kClose;
			break;
		case 1:
			fFarewell = kReset;
			break;
		case 2:
			_Send(chat.substr(0, _Number(static_cast<uint32_t>(chat.size()))));
			fFarewell = kClose;
			break;
		case 3:
			_Write();
			shutdown(fDescriptor, SHUT_WR);
			break;
		case 4:
		case 5:
		case 6:
		case 7:
			_Pause();
			break;
		case 8:
		case 9:
			// There is nothing to agree to: the client accepts by itself.
			_Send(wire_transaction(109, 0, wire_param(154, wire8(1))));
			break;
		case 10:
		case 11:
			// The client asks for the banner by itself.
			_Send(wire_transaction(122, 0, wire_param(152, "JPEG")));
			break;
		case 12:
		case 13:
		case 14:
		case 15:
			_Send(chat);
			break;
		case 16:
			_Send(wire_transaction(301, 0, user(5)));
			break;
		default:
			break;
	}
}


void
CheckedConnection::_Pause()
{
	const uint32_t ticks = 1 + _Number(kPause);
	if (fAtOnce)
		return;
	fCounts->pauses++;
	fReadAt = fTick + ticks;
}


void
CheckedConnection::_Reply(const RequestStream::Request& request, const std::string& params,
	uint32_t error)
{
	fCounts->replies++;
	_Send(wire_transaction(0x10000, request.id, params, error));
}


void
CheckedConnection::_Send(const std::string& bytes)
{
	fOut += bytes;
}


void
CheckedConnection::_SayFarewell()
{
	if (fFarewell == kClose)
		fCounts->closed++;
	if (fFarewell != kReset)
		return;

	fCounts->reset++;
	const linger immediately = {1, 0};
	setsockopt(fDescriptor, SOL_SOCKET, SO_LINGER, &immediately, sizeof(immediately));
}
