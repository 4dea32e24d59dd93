/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef REQUEST_STREAM_H
#define REQUEST_STREAM_H


#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>


/*!	What a client sends on one connection, judged as far as it has come: the handshake, nothing
	until that is accepted, then transactions that hold together, with the ids 1, 2, 3 and so on,
	the first of them the login and no other. Texts and names are made of one letter each, which
	shows when two transactions have mixed. Knows nothing of the client's own code.
*/
class RequestStream {
public:
	struct Request {
		uint32_t type;
		uint32_t id;
	};

	RequestStream();

	// The next bytes. After a complaint they are dropped.
	void Add(const char* bytes, size_t size);

	bool HasHandshake() const;
	// From here on there may be transactions.
	void AcceptHandshake();

	// The next whole transaction that was not asked for yet.
	bool Next(Request* _request);
	// Whether a part of something is all that has come of it.
	bool IsUnfinished() const;

	// What is wrong, with what came before it; empty if nothing is.
	const std::string& Complaint() const { return fComplaint; }

private:
	void _Judge();
	void _JudgeHandshake();
	bool _JudgeHeader();
	bool _JudgeParams(size_t size);
	void _Complain(const std::string& complaint);
	uint32_t _Number(size_t position, size_t size) const;

	bool fAccepted;
	// What has not been judged yet begins at the offset, with a transaction.
	std::string fBytes;
	size_t fOffset;
	std::deque<Request> fRequests;
	uint32_t fNextId;
	// The latest transactions.
	std::deque<Request> fTrail;
	std::string fComplaint;
};


#endif // REQUEST_STREAM_H
