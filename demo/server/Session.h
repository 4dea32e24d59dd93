/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_SESSION_H
#define DEMO_SESSION_H


#include "FileRequests.h"
#include "FloodSource.h"
#include "StreamChannel.h"
#include "User.h"

#include <cstdint>
#include <string>


namespace demo {


class Server;
class Transaction;


/*!	The control connection of one client, from the handshake to its end: reads requests, answers
	them, and carries what the server has to say. Belongs to the event loop and to its thread.
*/
class Session : public StreamChannel {
public:
	Session(int socket, Server& server);
	~Session() override;

	const User& Identity() const { return fUser; }
	// Whether the password of the login was the keeper's.
	bool IsKeeper() const { return fIsKeeper; }
	bool HasJoined() const { return fState == kJoined; }

	void Send(const Transaction& notice);
	void Reply(const Transaction& reply);
	void Refuse(uint32_t request, const std::string& text);

	void SetStatus(uint16_t status);
	void SendHalf(const Transaction& notice);
	void AskToLeave(const std::string& text);
	void StartFlood(unsigned long lines, size_t lineSize);

	static std::string AgreementText();

protected:
	size_t HandleInput(const uint8_t* bytes, size_t size) override;
	void RefillOutput() override;
	bool HasMoreOutput() const override { return fFlood.HasMore(); }

private:
	enum State { kHandshaking, kConnected, kReadingAgreement, kJoined };

	size_t _HandleHandshake(const uint8_t* bytes, size_t size);
	void _HandleRequest(const Transaction& request);
	void _HandleLogin(const Transaction& request);
	void _HandleAgreed(const Transaction& request);
	void _HandleChat(const Transaction& request);
	void _HandlePrivateMessage(const Transaction& request);
	void _HandleUserList(const Transaction& request);
	void _HandleUserInfo(const Transaction& request);
	void _HandleUserChange(const Transaction& request);

	void _SetIdentity(const Transaction& request);
	void _EndAfter(int milliseconds);

	Server& fServer;
	State fState = kHandshaking;
	User fUser;
	bool fIsKeeper = false;
	FileRequests fFileRequests;
	uint32_t fLastId = 0;
	FloodSource fFlood;
	// Ends a session that never logs in, or that stays although it was asked to leave.
	uint64_t fEndTimer = 0;
};


} // namespace demo


#endif // DEMO_SESSION_H
