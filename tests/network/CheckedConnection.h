/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CHECKED_CONNECTION_H
#define CHECKED_CONNECTION_H


#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

#include "RequestStream.h"


/*!	How often what has happened, for a test to see that it met what it is about. */
struct ServedCounts {
	size_t connections = 0;
	// Handshakes that were answered only after something else had happened.
	size_t lateHandshakes = 0;
	size_t logins = 0;
	size_t requests = 0;
	size_t replies = 0;
	// Times that the server stopped reading.
	size_t pauses = 0;
	size_t closed = 0;
	size_t reset = 0;
	// Connections that ended within a transaction.
	size_t unfinished = 0;
};


/*!	One of a CheckingServer's connections. Judges what comes and does by chance what servers do:
	answers or does not, says something itself, stops reading for a while, hangs up. Waits for
	nothing. The server's thread only.
*/
class CheckedConnection {
public:
	static const uint64_t kNever = UINT64_MAX;

	// The descriptor is closed in the end; the rest is borrowed.
	CheckedConnection(int descriptor, std::mt19937* random, ServedCounts* counts);
	CheckedConnection(const CheckedConnection&) = delete;
	~CheckedConnection();

	CheckedConnection& operator=(const CheckedConnection&) = delete;

	int Descriptor() const { return fDescriptor; }
	// What poll() is to wait for.
	short Events() const;
	// The tick at which there is something to do without any event, or kNever.
	uint64_t DueAt() const;

	// Does what the events and the tick allow; with atOnce, also what would be put off. false when
	// the connection has ended.
	bool Proceed(short events, uint64_t tick, bool atOnce);

	const std::string& Complaint() const { return fStream.Complaint(); }

private:
	enum Farewell { kStay, kClose, kReset };

	uint32_t _Number(uint32_t limit);
	bool _Read();
	void _Write();
	void _AnswerHandshake();
	void _Handle(const RequestStream::Request& request);
	void _Answer(const RequestStream::Request& request);
	void _DoAsItLikes();
	void _Pause();
	void _Reply(const RequestStream::Request& request, const std::string& params,
		uint32_t error = 0);
	void _Send(const std::string& bytes);
	void _SayFarewell();

	const int fDescriptor;
	std::mt19937* const fRandom;
	ServedCounts* const fCounts;
	RequestStream fStream;
	uint64_t fTick;
	bool fAtOnce;
	// When the handshake came, and when it is answered: kNever without one, and once it has been.
	uint64_t fHandshakeTick;
	uint64_t fAnswerAt;
	// When a pause is over, kNever without one.
	uint64_t fReadAt;
	Farewell fFarewell;
	// What there was no room for yet.
	std::string fOut;
};


#endif // CHECKED_CONNECTION_H
